import type { Ref } from "preact";
import { RobotView } from "../robotView/RobotView";
import * as texts from "../texts/drive";
import { CameraView } from "./CameraView";
import { DriveReason } from "./DriveReason";
import { scene } from "./driveSettings";
import "./stage.css";

/** What the driver looks at, and what has the focus while the keyboard drives. */
export function DriveStage({ element }: { element: Ref<HTMLElement> }) {
  const shown = scene.value;
  return (
    <section class={`stage ${shown}`} ref={element} tabIndex={-1} aria-label={texts.stage}>
      {shown !== "scan" && <CameraView />}
      {shown !== "camera" && <RobotView bare />}
      <DriveReason />
    </section>
  );
}
