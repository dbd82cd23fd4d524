import { useSignal } from "@preact/signals";
import { read } from "../data/requests";
import { canAdminister } from "../data/session";
import { Button } from "../kit/Button";
import { Disclosure } from "../kit/Disclosure";
import { Field } from "../kit/Field";
import { Select } from "../kit/Select";
import { toast } from "../kit/toasts";
import { GeometrySettings } from "../robotView/GeometrySettings";
import { NumberInput } from "../robotView/NumberInput";
import { viewReach, viewReaches } from "../robotView/viewSettings";
import * as driveTexts from "../texts/drive";
import * as robotViewTexts from "../texts/robotView";
import { type DriveScene, maxima, scene, stickSide } from "./driveSettings";
import { robotLimits } from "./robotLimits";
import { maximumBounds } from "./speedLimits";
import type { Maxima } from "./velocity";

const texts = driveTexts.options;

const speeds: readonly (readonly [keyof Maxima, string])[] = [
  ["vx", texts.maxSpeed],
  ["vy", texts.maxSideways],
  ["omega", texts.maxTurn],
];

const scenes = Object.keys(driveTexts.scenes) as DriveScene[];

export function DriveOptions() {
  const busy = useSignal(false);
  const takeLimits = async () => {
    busy.value = true;
    const outcome = await read("/data/config");
    busy.value = false;
    const limits = outcome.state === "answer" ? robotLimits(outcome.value) : undefined;
    if (limits === undefined) {
      toast(texts.noLimits, { kind: "error" });
    } else {
      maxima.value = limits;
      toast(texts.limitsTaken(limits.vx, limits.vy, limits.omega), { kind: "success" });
    }
  };
  return (
    <Disclosure title={texts.title}>
      <div class="options">
        <Field label={texts.scene} hint={driveTexts.cameraShared}>
          <Select
            value={scene.value}
            options={scenes.map((value) => ({ value, label: driveTexts.scenes[value] }))}
            onChange={(next) => {
              scene.value = next;
            }}
          />
        </Field>
        <Field label={robotViewTexts.reach}>
          <Select
            value={String(viewReach.value)}
            options={viewReaches.map((reach) => ({
              value: String(reach),
              label: robotViewTexts.metres(reach),
            }))}
            onChange={(reach) => {
              viewReach.value = Number(reach);
            }}
          />
        </Field>
        <Field label={texts.stickSide}>
          <Select
            value={stickSide.value}
            options={[
              { value: "left", label: driveTexts.left },
              { value: "right", label: driveTexts.right },
            ]}
            onChange={(side) => {
              stickSide.value = side;
            }}
          />
        </Field>
        {speeds.map(([key, label]) => (
          <NumberInput
            key={key}
            label={label}
            value={maxima.value[key]}
            bounds={maximumBounds}
            onChange={(value) => {
              maxima.value = { ...maxima.peek(), [key]: value };
            }}
          />
        ))}
        {canAdminister.value && (
          <Button busy={busy.value} onClick={() => void takeLimits()}>
            {texts.takeLimits}
          </Button>
        )}
      </div>
      <Disclosure title={texts.sensors}>
        <GeometrySettings />
      </Disclosure>
    </Disclosure>
  );
}
