import { useComputed } from "@preact/signals";
import { now } from "../data/clock";
import { odometry } from "../data/resources";
import { useResource } from "../data/useResource";
import { Canvas } from "../kit/Canvas";
import * as texts from "../texts/robotView";
import { paintTrace } from "./paintTrace";
import { lengthOf } from "./trace";
import { traceChanges, traceLines } from "./traceRecord";
import "./robotView.css";

/** The way of the last 30 seconds as a map, with gaps where nothing was known. */
export function PoseTrace() {
  useResource(odometry);
  const label = useComputed(() => {
    now.value;
    const lines = traceLines();
    return lines.length === 0 ? texts.trace.none : texts.trace.label(lengthOf(lines));
  });
  return (
    <div class="pose-trace">
      <Canvas
        label={label.value}
        redrawOn={traceChanges}
        paint={(context, width, height, theme) =>
          paintTrace(context, width, height, theme, traceLines())
        }
      />
    </div>
  );
}
