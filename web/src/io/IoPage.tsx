import { linkState } from "../data/link";
import { analogInputs, digitalInputs } from "../data/resources";
import { canOperate } from "../data/session";
import { useResource } from "../data/useResource";
import { LoginHint } from "../programs/LoginHint";
import * as texts from "../texts/io";
import { AnalogInputs } from "./AnalogInputs";
import { DigitalInputs } from "./DigitalInputs";
import "./io.css";
import { outputMemory, relayMemory } from "./outputMemories";
import { SwitchCard } from "./SwitchCard";

export function IoPage() {
  useResource(digitalInputs);
  useResource(analogInputs);
  const enabled = canOperate.value && linkState.value === "connected";
  return (
    <div class="io stack">
      <LoginHint>{texts.needsOperator}</LoginHint>
      <div class="switching">
        <div class="stack">
          <DigitalInputs />
          <SwitchCard
            title={texts.relays}
            path="/data/relayarray"
            count={2}
            nameOf={texts.relay}
            memory={relayMemory}
            enabled={enabled}
          />
        </div>
        <SwitchCard
          title={texts.outputs}
          path="/data/digitaloutputarray"
          count={8}
          nameOf={texts.output}
          memory={outputMemory}
          enabled={enabled}
        />
      </div>
      <AnalogInputs />
    </div>
  );
}
