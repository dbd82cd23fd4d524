import { effect } from "@preact/signals";
import { linkState } from "../data/link";
import { addressOf, write } from "../data/requests";
import { pollingPaused, setDriving } from "../data/scheduler";
import { canOperate, openLogin, refreshRole, role } from "../data/session";
import { toast } from "../kit/toasts";
import * as driveTexts from "../texts/drive";
import { systemClock } from "./clock";
import { DriveControl } from "./driveControl";
import { maxima, speedScale } from "./driveSettings";
import { halved } from "./speedLimits";

const path = "/data/omnidrive";

/** The one drive of this tab. */
export const drive = new DriveControl({
  clock: systemClock,
  transport: async (velocity, signal) =>
    (await write(path, velocity, { lane: "control", signal })).state,
  limits: () => ({ maxima: maxima.peek(), scale: speedScale.peek() }),
  refused: () => void explainRefusal(),
  stopBehind: () => {
    navigator.sendBeacon(addressOf(path), "[]");
  },
});

// All tabs of a browser hear of it when one of them takes over or stops the robot.
const otherTabs =
  typeof BroadcastChannel === "undefined" ? undefined : new BroadcastChannel("tessarad.driveLock");
if (otherTabs !== undefined) {
  otherTabs.onmessage = () => drive.lock("otherTab");
}

/** Else the next command of another tab would undo what this one does. */
export function lockOtherTabs(): void {
  otherTabs?.postMessage("lock");
}

// A refusal doesn't say why.
async function explainRefusal(): Promise<void> {
  await refreshRole();
  if (canOperate.peek()) {
    maxima.value = halved(maxima.peek());
    toast(driveTexts.halved, { kind: "error" });
  } else {
    openLogin(driveTexts.loginAgain);
  }
}

effect(() => setDriving(drive.model.value.state !== "locked"));

// That polling is paused means that another tab is unlocked.
effect(() => {
  if (pollingPaused.value !== undefined) {
    drive.lock("otherTab");
  }
});

// A higher role locks too: somebody else may have taken the seat.
effect(() => {
  role.value;
  drive.lock("role");
});

effect(() => {
  if (linkState.value === "lost") {
    drive.lock("offline");
  }
});
