import { effect } from "@preact/signals";
import { retryDelayMs } from "./LinkMonitor";
import { linkState } from "./link";
import { pollingPaused } from "./scheduler";
import { refreshDefaultRole, refreshRole } from "./session";
import { visible } from "./visibility";

const periodMs = 1000;

/** Asks for the role again and again: that alone notices lost links and lost roles on every page. */
export function startHeartbeat(): () => void {
  let timer: ReturnType<typeof setTimeout> | undefined;
  let attempt = 0;
  let running = false;
  let stopped = false;

  const beat = async () => {
    if (running || stopped) {
      return;
    }
    clearTimeout(timer);
    running = true;
    const wasLost = linkState.peek() === "lost";
    await refreshRole();
    running = false;
    const lost = linkState.peek() === "lost";
    if (wasLost && !lost) {
      void refreshDefaultRole();
    }
    attempt = lost ? attempt + 1 : 0;
    if (!stopped && wanted()) {
      timer = setTimeout(beat, lost ? retryDelayMs(attempt - 1) : periodMs);
    }
  };

  const wanted = () => visible.peek() && pollingPaused.peek() === undefined;
  const stopWatching = effect(() => {
    if (visible.value && pollingPaused.value === undefined) {
      void beat();
    } else {
      clearTimeout(timer);
    }
  });
  const onOnline = () => void beat();
  globalThis.addEventListener?.("online", onOnline);
  void refreshDefaultRole();

  return () => {
    stopped = true;
    clearTimeout(timer);
    stopWatching();
    globalThis.removeEventListener?.("online", onOnline);
  };
}
