import type { ReadonlySignal } from "@preact/signals";
import { drive, lockOtherTabs } from "./drive";
import type { StopOutcome } from "./driveControl";

/** What became of the last stop; "confirmed" passes by itself. */
export const driveStop: ReadonlySignal<StopOutcome> = drive.stopOutcome;

/** Stops the robot from any page and any state, whoever drives it, and locks the drive page. */
export function stopDrive(): void {
  lockOtherTabs();
  drive.stop();
}
