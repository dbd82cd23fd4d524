import type { Maxima, Velocity } from "./velocity";

const rampMs = 300;

function approach(current: number, target: number, step: number): number {
  const start = current * target > 0 ? Math.abs(current) : 0;
  const size = Math.abs(target);
  return Math.sign(target) * Math.min(size, start + step);
}

// Speeding up takes time, from nothing to full in 300 ms; slowing down is immediate, and so is the
// end of the old direction when it is reversed.
export function ramped(
  current: Velocity,
  target: Velocity,
  full: Maxima,
  elapsedMs: number,
): Velocity {
  const share = Math.max(0, elapsedMs) / rampMs;
  return [
    approach(current[0], target[0], full.vx * share),
    approach(current[1], target[1], full.vy * share),
    approach(current[2], target[2], full.omega * share),
  ];
}
