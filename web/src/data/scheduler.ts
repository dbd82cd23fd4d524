import { type ReadonlySignal, signal } from "@preact/signals";
import { RequestQueue } from "./RequestQueue";

// Browsers open six connections to a host, for all tabs together. A command that finds all of them
// busy waits for seconds, so the background must never take more than these.
const limitAtRest = 4;
const limitWhileDriving = 3;

let driving = false;
const drivingListeners = new Set<(driving: boolean) => void>();

/** Leaves two connections to the control lane, which may have two zeros under way. */
export const backgroundQueue = new RequestQueue(() => (driving ? limitWhileDriving : limitAtRest));

const paused = signal<string | undefined>(undefined);

/** Why nothing is polled at present, as a text for people; undefined while polling goes on. */
export const pollingPaused: ReadonlySignal<string | undefined> = paused;

export function pausePolling(reason: string | undefined): void {
  paused.value = reason;
}

export function setDriving(now: boolean): void {
  if (now === driving) {
    return;
  }
  driving = now;
  for (const listener of drivingListeners) {
    listener(driving);
  }
}

export function onDrivingChange(listener: (driving: boolean) => void): () => void {
  drivingListeners.add(listener);
  return () => drivingListeners.delete(listener);
}
