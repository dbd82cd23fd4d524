import { computed, type ReadonlySignal, signal } from "@preact/signals";
import { LinkMonitor } from "./LinkMonitor";

const monitor = new LinkMonitor(Date.now());
const lost = signal<number | undefined>(undefined);
const roundTrip = signal<number | undefined>(undefined);

/** When the connection was lost, in milliseconds since 1970; undefined while it holds. */
export const lostSince: ReadonlySignal<number | undefined> = lost;

export const linkState: ReadonlySignal<"connected" | "lost"> = computed(() =>
  lost.value === undefined ? "connected" : "lost",
);

export const roundTripMs: ReadonlySignal<number | undefined> = roundTrip;

export function noteReached(): void {
  monitor.succeeded(Date.now());
  lost.value = monitor.lostSince;
}

export function noteUnreachable(): void {
  monitor.failed(Date.now());
  lost.value = monitor.lostSince;
  if (lost.value !== undefined) {
    roundTrip.value = undefined;
  }
}

/** Half the weight for the newest one: a single slow answer shows, but does not linger. */
export function noteRoundTrip(milliseconds: number): void {
  const before = roundTrip.value;
  roundTrip.value = Math.round(before === undefined ? milliseconds : (before + milliseconds) / 2);
}
