import { useComputed, useSignal } from "@preact/signals";
import { useEffect, useState } from "preact/hooks";
import { odometry } from "../data/resources";
import { useResource } from "../data/useResource";
import { Age } from "../kit/Age";
import { Icon } from "../kit/Icon";
import * as texts from "../texts/drive";
import { drive } from "./drive";
import { ElsewhereWatch } from "./elsewhere";
import type { Velocity } from "./velocity";

/** What is asked of the robot, what it does, and a hint when the two don't belong together. */
export function DriveReadings() {
  useResource(odometry);
  const movesElsewhere = useSignal(false);
  const [watch] = useState(() => new ElsewhereWatch());
  useEffect(
    () =>
      odometry.value.subscribe((reading) => {
        const { state } = drive.model.peek();
        const isDrivenHere = state === "driving" || state === "stopping";
        movesElsewhere.value = watch.moves(reading, isDrivenHere, performance.now());
      }),
    [],
  );
  const measured = useComputed<Velocity | undefined>(() => {
    const reading = odometry.value.value;
    return reading && [reading.vx, reading.vy, reading.omega];
  });
  return (
    <div class="readings">
      <dl>
        <div>
          <dt>{texts.commanded}</dt>
          <dd>{texts.velocity(drive.commanded.value)}</dd>
        </div>
        <div class={odometry.freshness.value === "fresh" ? "" : "stale"}>
          <dt>{texts.measured}</dt>
          <dd>
            {measured.value && texts.velocity(measured.value)} <Age resource={odometry} />
          </dd>
        </div>
      </dl>
      <p class="elsewhere" role="status">
        {movesElsewhere.value && (
          <>
            <Icon name="warning" />
            {texts.movesElsewhere}
          </>
        )}
      </p>
    </div>
  );
}
