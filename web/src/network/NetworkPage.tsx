import { useEffect } from "preact/hooks";
import { useUnsavedGuard } from "../configuration/useUnsavedGuard";
import { canAdminister, canOperate, openLogin } from "../data/session";
import { useResource } from "../data/useResource";
import { Button } from "../kit/Button";
import { Chip } from "../kit/Chip";
import * as texts from "../texts/network";
import { ApplyPanel } from "./ApplyPanel";
import { closeFlow, resume } from "./activeFlow";
import { flowIn, withoutFlow } from "./handOver";
import { NetworkCard } from "./NetworkCard";
import { forms } from "./NetworkForm";
import "../configuration/configuration.css";
import "./network.css";
import { wirelessHardware } from "./resources";

const both = [forms.eth, forms.wlan];

function countUnsaved(): number {
  return both.reduce((count, form) => count + form.changes.peek().length, 0);
}

/** Takes over what a page at another address has begun. */
function resumeHandedFlow(): void {
  const handed = flowIn(location.hash);
  if (handed !== undefined) {
    history.replaceState(null, "", withoutFlow(location.hash));
    void resume(forms[handed.network], handed);
  }
}

export function NetworkPage() {
  useUnsavedGuard(countUnsaved);
  useEffect(() => {
    resumeHandedFlow();
    return () => {
      closeFlow();
      for (const form of both) {
        form.forget();
      }
    };
  }, []);
  const hardware = useResource(wirelessHardware).value.value;
  return (
    <div class="editing network stack">
      {!canAdminister.value && (
        <p class="row">
          {texts.needsLogin}
          <Button icon="user" onClick={() => openLogin(texts.needsLogin)}>
            {texts.logIn}
          </Button>
        </p>
      )}
      <NetworkCard form={forms.eth} mayRead={true} />
      <NetworkCard form={forms.wlan} mayRead={canOperate.value}>
        {hardware === false && (
          <Chip tone="warn" icon="warning">
            {texts.noHardware}
          </Chip>
        )}
      </NetworkCard>
      <ApplyPanel />
    </div>
  );
}
