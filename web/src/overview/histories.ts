import { effect } from "@preact/signals";
import { odometry, power } from "../data/resources";
import { SampleRing } from "../kit/SampleRing";

/** Kept beside the page, so that what was seen before is still there after a look elsewhere. */
export const speedHistory = new SampleRing(400, 3, 2500);
export const voltageHistory = new SampleRing(600, 1, 8000);

effect(() => {
  const at = odometry.arrivedAt.value;
  const reading = odometry.value.peek();
  if (at !== undefined && reading !== undefined) {
    speedHistory.push(at, reading.vx, reading.vy, reading.omega);
  }
});

effect(() => {
  const at = power.arrivedAt.value;
  if (at !== undefined) {
    voltageHistory.push(at, power.value.peek()?.voltage);
  }
});
