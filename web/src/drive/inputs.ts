import { type Deflection, neutral, sumOf } from "./velocity";

/** What one control says: a stick, the keys, a gamepad, a step. */
export interface InputReading {
  /** Somebody holds it, so that it may move the robot. */
  readonly isHeld: boolean;
  readonly deflection: Deflection;
  /** A step: slow whatever the chosen speed is, and without a ramp, as it is over before one is. */
  readonly isStep?: boolean;
}

export const atRest: InputReading = { isHeld: false, deflection: neutral };

export interface CombinedInputs {
  readonly isHeld: boolean;
  readonly isNeutral: boolean;
  readonly isStep: boolean;
  readonly deflection: Deflection;
}

export function combined(readings: Iterable<InputReading>): CombinedInputs {
  const all = [...readings];
  const held = all.filter((reading) => reading.isHeld);
  return {
    isHeld: held.length > 0,
    isNeutral: held.length === 0 && all.every(isResting),
    isStep: held.length > 0 && held.every((reading) => reading.isStep === true),
    deflection: sumOf(held.map((reading) => reading.deflection)),
  };
}

function isResting(reading: InputReading): boolean {
  return reading.deflection.every((part) => part === 0);
}
