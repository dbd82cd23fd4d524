import { analogInputs, digitalInputs } from "../data/resources";
import { useResource } from "../data/useResource";
import { Age } from "../kit/Age";
import { Card } from "../kit/Card";
import { Icon } from "../kit/Icon";
import * as texts from "../texts/overview";
import { Readings } from "./Readings";

export function InputsCard() {
  useResource(analogInputs);
  useResource(digitalInputs);
  const aged = analogInputs.freshness.value === "fresh" ? digitalInputs : analogInputs;
  return (
    <Card title={texts.inputs} aside={<Age resource={aged} />}>
      <div class="inputs">
        <Readings
          stale={analogInputs.freshness.value !== "fresh"}
          rows={(analogInputs.value.value ?? []).map(
            (value, index) => [texts.analog(index), texts.volts(value)] as const,
          )}
        />
        <Readings
          stale={digitalInputs.freshness.value !== "fresh"}
          rows={(digitalInputs.value.value ?? []).map(
            (isOn, index) =>
              [
                texts.digital(index),
                <span key="value" class={isOn ? "input-state on" : "input-state"}>
                  {isOn && <Icon name="check" />}
                  {isOn ? texts.on : texts.off}
                </span>,
              ] as const,
          )}
        />
      </div>
      <a href="#/io">{texts.toIo}</a>
    </Card>
  );
}
