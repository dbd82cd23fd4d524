import { effect } from "@preact/signals";
import { linkState } from "../data/link";
import { addressOf, write } from "../data/requests";
import { setDriving } from "../data/scheduler";
import { canOperate, openLogin, refreshRole, role } from "../data/session";
import { toast } from "../kit/toasts";
import { driveTexts } from "../texts/drive";
import { systemClock } from "./clock";
import { DriveControl } from "./driveControl";
import { DriveLease, openLeaseChannel } from "./driveLease";
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

export const driveLease = new DriveLease(
  crypto.getRandomValues(new Uint32Array(2)).join("-"),
  systemClock,
  openLeaseChannel(),
  {
    lost: () => drive.lock("otherTab"),
    stopWanted: () => drive.lock("otherTab"),
  },
);

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

/** The switch: false where another tab of this browser drives. */
export function unlockDriving(takeOver = false): boolean {
  if (!driveLease.take(takeOver)) {
    return false;
  }
  drive.unlock();
  if (drive.model.peek().state === "locked") {
    driveLease.release();
  }
  return true;
}

effect(() => {
  const isLocked = drive.model.value.state === "locked";
  setDriving(!isLocked);
  if (isLocked) {
    driveLease.release();
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
