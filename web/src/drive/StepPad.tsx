import { Button } from "../kit/Button";
import { Disclosure } from "../kit/Disclosure";
import type { IconName } from "../kit/Icon";
import * as driveTexts from "../texts/drive";
import { drive } from "./drive";
import type { Deflection } from "./velocity";

const texts = driveTexts.steps;

const steps: readonly (readonly [string, IconName, string, Deflection])[] = [
  ["turn-left", "turnLeft", texts.turnLeft, [0, 0, 1]],
  ["ahead", "up", texts.ahead, [1, 0, 0]],
  ["turn-right", "turnRight", texts.turnRight, [0, 0, -1]],
  ["left", "left", texts.left, [0, 1, 0]],
  ["back", "down", texts.back, [-1, 0, 0]],
  ["right", "right", texts.right, [0, -1, 0]],
];

/** For people who can't hold a control. */
export function StepPad() {
  const { state } = drive.model.value;
  const isLocked = state === "locked";
  return (
    <Disclosure title={texts.title}>
      <p>{isLocked ? texts.unlockFirst : texts.intro}</p>
      <div class="steps">
        {steps.map(([name, icon, label, deflection]) => (
          <Button
            key={name}
            icon={icon}
            aria-label={label}
            title={label}
            disabled={isLocked}
            onClick={() => drive.step(deflection)}
          />
        ))}
      </div>
    </Disclosure>
  );
}
