import { useComputed } from "@preact/signals";
import { now } from "../data/clock";
import { bumper, distances, scan } from "../data/resources";
import { useResource } from "../data/useResource";
import { Age } from "../kit/Age";
import { Canvas } from "../kit/Canvas";
import * as texts from "../texts/robotView";
import { bearingOf } from "./nearestEcho";
import { paintRobot } from "./paintRobot";
import { surroundingsOf } from "./surroundings";
import { sensorGeometry, viewReach } from "./viewSettings";
import "./robotView.css";

function present() {
  const isFresh = (resource: typeof scan | typeof distances) =>
    resource.freshness.peek() === "fresh";
  return surroundingsOf(
    isFresh(scan) ? scan.value.peek() : undefined,
    isFresh(distances) ? distances.value.peek() : undefined,
    sensorGeometry.peek(),
  ).nearest;
}

/** In words, once a second: nobody reads faster than that. */
function summaryNow(): string {
  now.value;
  if (scan.value.peek() === undefined && distances.value.peek() === undefined) {
    return texts.noReadings;
  }
  if (scan.freshness.value !== "fresh" && distances.freshness.value !== "fresh") {
    return texts.oldReadings;
  }
  const nearest = present();
  const words =
    nearest === undefined
      ? texts.nothingNear
      : texts.nearest(nearest.distance, bearingOf(nearest.angle));
  return bumper.value.value === true ? `${texts.touching}. ${words}` : words;
}

export interface RobotViewProps {
  /** Lies over something else: no words below the picture. */
  bare?: boolean;
}

/** The robot from above with what its scanner, its distance sensors and its bumper notice. */
export function RobotView({ bare = false }: RobotViewProps) {
  useResource(scan);
  useResource(distances);
  useResource(bumper);
  const summary = useComputed(summaryNow);
  const aged = scan.freshness.value === "fresh" ? distances : scan;
  return (
    <div class={`robot-view ${bare ? "bare" : ""}`}>
      <Canvas
        label={texts.pictureLabel(summary.value)}
        redrawOn={[
          scan.value,
          distances.value,
          bumper.value,
          scan.freshness,
          distances.freshness,
          sensorGeometry,
          viewReach,
        ]}
        paint={(context, width, height, theme) =>
          paintRobot(context, width, height, theme, {
            surroundings: surroundingsOf(
              scan.value.peek(),
              distances.value.peek(),
              sensorGeometry.peek(),
            ),
            geometry: sensorGeometry.peek(),
            reach: viewReach.peek(),
            isTouching: bumper.value.peek() === true,
            isScanOld: scan.freshness.peek() !== "fresh",
            areDistancesOld: distances.freshness.peek() !== "fresh",
          })
        }
      />
      {!bare && (
        <p class="summary">
          {summary} <Age resource={aged} />
        </p>
      )}
    </div>
  );
}
