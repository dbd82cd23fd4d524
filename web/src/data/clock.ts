import { type ReadonlySignal, signal } from "@preact/signals";

const time = signal(Date.now());

/** Milliseconds since 1970, renewed each second: what shows ages and countdowns depends on it. */
export const now: ReadonlySignal<number> = time;

export function startClock(): () => void {
  const timer = setInterval(() => {
    time.value = Date.now();
  }, 1000);
  return () => clearInterval(timer);
}
