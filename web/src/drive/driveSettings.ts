import { signal } from "@preact/signals";
import { setting } from "../settings/settings";
import { oneOf } from "../settings/validators";
import { defaultMaxima, firstScale, isMaxima, type SpeedScale } from "./speedLimits";
import type { Maxima } from "./velocity";

export type DriveScene = "camera" | "scan" | "sideBySide" | "overlay";
export type Side = "left" | "right";
export type KeyMapName = "letters" | "arrows";

export const speedScale = signal<SpeedScale>(firstScale);

export const maxima = setting<Maxima>("drive.maxima", defaultMaxima, (value) =>
  isMaxima(value) ? value : undefined,
);

// Two pictures beside each other are too small on a phone.
const isNarrow = globalThis.matchMedia?.("(max-width: 900px)").matches ?? false;

export const scene = setting<DriveScene>(
  "drive.scene",
  isNarrow ? "overlay" : "sideBySide",
  oneOf("camera", "scan", "sideBySide", "overlay"),
);

/** On which side the stick for ahead and sideways is; the one for turning is on the other. */
export const stickSide = setting<Side>("drive.stickSide", "left", oneOf("left", "right"));

export const keyMapName = setting<KeyMapName>(
  "drive.keyMap",
  "letters",
  oneOf("letters", "arrows"),
);
