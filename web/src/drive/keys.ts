import type { KeyMapName } from "./driveSettings";
import { atRest, type InputReading } from "./inputs";
import { type Deflection, sumOf } from "./velocity";

/** By the key's place on the keyboard, so that each language has the same pattern under the hand. */
export const keyMaps: Readonly<Record<KeyMapName, Readonly<Record<string, Deflection>>>> = {
  letters: {
    KeyW: [1, 0, 0],
    KeyS: [-1, 0, 0],
    KeyA: [0, 1, 0],
    KeyD: [0, -1, 0],
    KeyQ: [0, 0, 1],
    KeyE: [0, 0, -1],
  },
  arrows: {
    ArrowUp: [1, 0, 0],
    ArrowDown: [-1, 0, 0],
    ArrowLeft: [0, 1, 0],
    ArrowRight: [0, -1, 0],
    Comma: [0, 0, 1],
    Period: [0, 0, -1],
  },
};

export interface KeyChange {
  readonly code: string;
  readonly isDown: boolean;
  readonly isShiftDown: boolean;
  /** Control, Alt or the system's key: keys that are let go of then may never be told. */
  readonly isCommand: boolean;
}

/** The keys that move the robot, of which Shift is the dead-man switch. */
export class HeldKeys {
  #held = new Map<string, Deflection>();
  #isShiftDown = false;

  note(change: KeyChange, map: Readonly<Record<string, Deflection>>): InputReading {
    this.#isShiftDown = change.isShiftDown;
    const deflection = Object.hasOwn(map, change.code) ? map[change.code] : undefined;
    if (change.isCommand) {
      this.#held.clear();
    } else if (!change.isDown) {
      this.#held.delete(change.code);
    } else if (deflection !== undefined) {
      this.#held.set(change.code, deflection);
    }
    return this.reading;
  }

  clear(): InputReading {
    this.#held.clear();
    this.#isShiftDown = false;
    return this.reading;
  }

  get reading(): InputReading {
    if (this.#held.size === 0) {
      return atRest;
    }
    return { isHeld: this.#isShiftDown, deflection: sumOf([...this.#held.values()]) };
  }
}
