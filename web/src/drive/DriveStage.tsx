import type { Ref } from "preact";
import { RobotView } from "../robotView/RobotView";
import { driveTexts as texts } from "../texts/drive";
import { CameraView } from "./CameraView";
import { scene } from "./driveSettings";

/** What the driver looks at, and what has the focus while the keyboard drives. */
export function DriveStage({ element }: { element: Ref<HTMLElement> }) {
  const shown = scene.value;
  return (
    // biome-ignore lint/a11y/noNoninteractiveTabindex: the keys that drive need a place that has the focus and is no button.
    <section class={`stage ${shown}`} ref={element} tabIndex={0} aria-label={texts.stage}>
      {shown !== "scan" && <CameraView />}
      {shown !== "camera" && <RobotView bare />}
    </section>
  );
}
