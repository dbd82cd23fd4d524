import { effect, type ReadonlySignal, signal } from "@preact/signals";
import { now } from "../data/clock";
import { odometry } from "../data/resources";
import { Trace } from "./trace";

const trace = new Trace();
const changes = signal(0);

/** Grows with each change of the trace. */
export const traceChanges: ReadonlySignal<number> = changes;

export function traceLines() {
  return trace.lines;
}

// Readings of all pages that ask for the position count, so that the trace is there when one comes
// back to it.
effect(() => {
  const reading = odometry.value.value;
  const time = odometry.arrivedAt.peek();
  if (reading !== undefined && time !== undefined) {
    trace.add({ time, x: reading.x, y: reading.y, phi: reading.phi });
    changes.value = changes.peek() + 1;
  }
});

effect(() => {
  trace.forget(now.value);
  changes.value = changes.peek() + 1;
});
