import { effect, signal } from "@preact/signals";
import { output } from "./resources";
import { emptyScrollback, mergeRing, restarted, type Scrollback } from "./ringMerge";

/** Outlives the page, so that who comes back finds what was there. */
export const outputLog = signal<Scrollback>(emptyScrollback);

effect(() => {
  const ring = output.value.value;
  if (ring !== undefined) {
    outputLog.value = mergeRing(outputLog.peek(), ring);
  }
});

/** After a start was accepted: the daemon has forgotten what was printed before. */
export async function noteStart(): Promise<void> {
  const before = outputLog.peek().ring;
  // A reading that was under way may still bring the old lines, which must not count as new.
  await output.refresh();
  if (outputLog.peek().ring === before) {
    outputLog.value = restarted(outputLog.peek());
  }
}
