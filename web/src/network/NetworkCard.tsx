import type { ComponentChildren } from "preact";
import { useEffect } from "preact/hooks";
import { EditBar } from "../configuration/EditBar";
import { NotLoaded } from "../configuration/NotLoaded";
import { linkState } from "../data/link";
import { canAdminister } from "../data/session";
import { Card } from "../kit/Card";
import * as texts from "../texts/network";
import { ConnectionDetails } from "./ConnectionDetails";
import { LeafField } from "./LeafField";
import type { NetworkForm } from "./NetworkForm";
import { reviewAndApply } from "./reviewAndApply";
import { ScriptResult } from "./ScriptResult";

export interface NetworkCardProps {
  form: NetworkForm;
  mayRead: boolean;
  children?: ComponentChildren;
}

/** One network: its settings, what its script said last, and what the system says of it. */
export function NetworkCard({ form, mayRead, children }: NetworkCardProps) {
  const connected = linkState.value === "connected";
  const enabled = connected && canAdminister.value;
  useEffect(() => {
    if (!mayRead) {
      form.forget();
    } else if (connected) {
      void form.load();
    }
  }, [form, mayRead, connected]);
  const tree = form.tree.value;
  return (
    <Card title={texts.title[form.network]} aside={children}>
      {mayRead && tree === undefined && (
        <NotLoaded hasFailed={form.hasFailed.value} load={() => form.load()} />
      )}
      {tree?.map((node) => (
        <fieldset key={node.name}>
          <legend>{node.name}</legend>
          <div class="fields">
            {node.leaves.map((leaf) => (
              <LeafField key={leaf.name} form={form} node={node} leaf={leaf} enabled={enabled} />
            ))}
          </div>
        </fieldset>
      ))}
      <EditBar
        count={form.changes.value.length}
        isValid={form.findings.value.errors.length === 0}
        enabled={enabled}
        action={texts.review}
        onDiscard={() => form.discard()}
        onSave={() => reviewAndApply(form)}
      />
      <ScriptResult form={form} enabled={enabled} />
      <ConnectionDetails network={form.network} />
    </Card>
  );
}
