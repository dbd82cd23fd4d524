import { useRef } from "preact/hooks";
import { DriveBar } from "./DriveBar";
import { DriveOptions } from "./DriveOptions";
import { DriveReadings } from "./DriveReadings";
import { DriveStage } from "./DriveStage";
import { stickSide } from "./driveSettings";
import { InputOptions } from "./InputOptions";
import { StepPad } from "./StepPad";
import { Stick } from "./Stick";
import { useDriveGuards } from "./useDriveGuards";
import { useGamepad } from "./useGamepad";
import { useKeyboard } from "./useKeyboard";
import "./drive.css";

export function DrivePage() {
  const stage = useRef<HTMLElement>(null);
  useDriveGuards();
  useKeyboard();
  const gamepad = useGamepad();
  return (
    <div class={`drive stick-${stickSide.value}`}>
      {/* The focus leaves the switch, as keys that belong to a control don't drive. */}
      <DriveBar onUnlocked={() => stage.current?.focus({ preventScroll: true })} />
      <div class="cockpit">
        <Stick kind="move" />
        <DriveStage element={stage} />
        <Stick kind="turn" />
        <DriveReadings />
      </div>
      <div class="more">
        <StepPad />
        <InputOptions gamepad={gamepad} />
        <DriveOptions />
      </div>
    </div>
  );
}
