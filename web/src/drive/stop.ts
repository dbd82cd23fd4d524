import type { ReadonlySignal } from "@preact/signals";
import { drive, driveLease } from "./drive";
import type { StopOutcome } from "./driveControl";

/** What became of the last stop; "confirmed" passes by itself. */
export const driveStop: ReadonlySignal<StopOutcome> = drive.stopOutcome;

/** Stops the robot from any page and any state, whoever drives it, and locks the drive page. */
export function stopDrive(): void {
  driveLease.stopOthers();
  drive.stop();
}
