import type { InputReading } from "./inputs";
import { type Deflection, sumOf } from "./velocity";

/** What is read of a gamepad. */
export interface Pad {
  readonly index: number;
  readonly id: string;
  readonly connected: boolean;
  readonly mapping: string;
  readonly axes: readonly number[];
  readonly buttons: readonly { readonly pressed: boolean }[];
}

export type PadChoice =
  | { readonly kind: "unsupported" }
  | { readonly kind: "none" }
  | { readonly kind: "unknownLayout"; readonly id: string }
  | { readonly kind: "choose"; readonly pads: readonly Pad[] }
  | { readonly kind: "ready"; readonly pad: Pad; readonly pads: readonly Pad[] };

const deadZone = 0.1;
const leftShoulder = 4;
const rightShoulder = 5;

/** One pad is taken as it is; of several, none before somebody has chosen. */
export function choosePad(
  all: readonly (Pad | null)[] | undefined,
  chosen: number | undefined,
): PadChoice {
  if (all === undefined) {
    return { kind: "unsupported" };
  }
  const connected = all.filter((pad): pad is Pad => pad?.connected === true);
  const pads = connected.filter((pad) => pad.mapping === "standard");
  const [first] = pads;
  if (first === undefined) {
    const stranger = connected[0];
    return stranger === undefined ? { kind: "none" } : { kind: "unknownLayout", id: stranger.id };
  }
  const pad = pads.length === 1 ? first : pads.find((other) => other.index === chosen);
  return pad === undefined ? { kind: "choose", pads } : { kind: "ready", pad, pads };
}

// What is beyond the dead zone starts from nothing, so that the robot doesn't jump.
function withoutDeadZone(value: number | undefined): number {
  const size = Math.abs(value ?? 0);
  return size <= deadZone ? 0 : (Math.sign(value ?? 0) * (Math.min(1, size) - deadZone)) / 0.9;
}

export function padReading(pad: Pad): InputReading {
  const [sideways, back, turn] = [0, 1, 2].map((axis) => withoutDeadZone(pad.axes[axis]));
  const deflection: Deflection = sumOf([[-(back ?? 0), -(sideways ?? 0), -(turn ?? 0)]]);
  const isHeld = [leftShoulder, rightShoulder].some((button) => pad.buttons[button]?.pressed);
  return { isHeld, deflection };
}
