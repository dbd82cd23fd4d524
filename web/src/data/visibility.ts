import { type ReadonlySignal, signal } from "@preact/signals";

const isVisible = () => typeof document === "undefined" || document.visibilityState === "visible";

const state = signal(isVisible());

/** Whether the tab is in sight: a hidden one asks the robot for nothing. */
export const visible: ReadonlySignal<boolean> = state;

if (typeof document !== "undefined") {
  document.addEventListener("visibilitychange", () => {
    state.value = isVisible();
  });
}
