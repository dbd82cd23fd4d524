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
    if (mayRead && connected) {
      void form.load();
    }
  }, [form, mayRead, connected]);
  // Who lost the role finds the edits again after the next login.
  const tree = mayRead ? form.tree.value : undefined;
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
        count={mayRead ? form.changes.value.length : 0}
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
