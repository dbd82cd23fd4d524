import { Disclosure } from "../kit/Disclosure";
import { Field } from "../kit/Field";
import { Select } from "../kit/Select";
import * as driveTexts from "../texts/drive";
import { keyMapName } from "./driveSettings";
import type { PadChoice } from "./gamepads";
import type { GamepadUse } from "./useGamepad";

const texts = driveTexts.inputs;

function explanation(choice: PadChoice): string {
  switch (choice.kind) {
    case "unsupported":
      return texts.unsupported;
    case "none":
      return texts.none;
    case "unknownLayout":
      return texts.unknownLayout(choice.id);
    case "choose":
      return texts.choose;
    case "ready":
      return `${choice.pad.id}. ${texts.ready}`;
  }
}

export function InputOptions({ gamepad }: { gamepad: GamepadUse }) {
  const choice = gamepad.choice.value;
  const pads = "pads" in choice ? choice.pads : [];
  return (
    <Disclosure title={texts.title}>
      <div class="options">
        <Field label={texts.keys} hint={texts.keysHint}>
          <Select
            value={keyMapName.value}
            options={[
              { value: "letters", label: driveTexts.keyMapNames.letters },
              { value: "arrows", label: driveTexts.keyMapNames.arrows },
            ]}
            onChange={(name) => {
              keyMapName.value = name;
            }}
          />
        </Field>
        {pads.length > 1 ? (
          <Field label={texts.gamepad} hint={explanation(choice)}>
            <Select
              value={String(gamepad.chosen.value ?? "")}
              options={[
                { value: "", label: texts.choose },
                ...pads.map((pad) => ({ value: String(pad.index), label: pad.id })),
              ]}
              onChange={(index) => {
                gamepad.chosen.value = index === "" ? undefined : Number(index);
              }}
            />
          </Field>
        ) : (
          <div class="field">
            <strong>{texts.gamepad}</strong>
            <p class="hint">{explanation(choice)}</p>
          </div>
        )}
      </div>
    </Disclosure>
  );
}
