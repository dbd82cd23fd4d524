import { effect } from "@preact/signals";
import { now } from "../data/clock";
import { lostSince } from "../data/link";
import { pollingPaused } from "../data/scheduler";
import { role } from "../data/session";
import { visible } from "../data/visibility";
import { OutputMemory } from "./outputMemory";

const channelName = "tessarad.outputs";
const seenEachMs = 10_000;

const channel =
  typeof BroadcastChannel === "undefined" ? undefined : new BroadcastChannel(channelName);

function inBrowser(key: string, count: number): OutputMemory {
  return new OutputMemory(count, {
    load: () => {
      try {
        return localStorage.getItem(key);
      } catch {
        return null;
      }
    },
    save: (text) => {
      try {
        localStorage.setItem(key, text ?? "");
      } catch {
        // Where the browser stores nothing, the memory lasts until the page is loaded again.
      }
    },
    announce: () => channel?.postMessage("changed"),
  });
}

export const outputMemory = inBrowser("tessarad.outputs.digital", 8);
export const relayMemory = inBrowser("tessarad.outputs.relays", 2);

const memories = [outputMemory, relayMemory];

if (channel !== undefined) {
  channel.onmessage = () => {
    for (const memory of memories) {
      memory.reload();
    }
  };
}

let lastSeen = 0;

effect(() => {
  const time = now.value;
  const since = lostSince.value;
  // A tab that asks for nothing doesn't know whether the robot is still there.
  const isWatching = visible.value && pollingPaused.value === undefined && role.value !== undefined;
  const isDue = Math.abs(time - lastSeen) >= seenEachMs;
  for (const memory of memories) {
    if (since !== undefined) {
      memory.lost(since, time);
    } else if (isWatching && isDue) {
      memory.seen(time);
    }
  }
  if (since === undefined && isWatching && isDue) {
    lastSeen = time;
  }
});
