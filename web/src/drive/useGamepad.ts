import { type ReadonlySignal, type Signal, useSignal } from "@preact/signals";
import { useEffect } from "preact/hooks";
import { drive } from "./drive";
import { choosePad, type PadChoice, padReading } from "./gamepads";

const periodMs = 50;

function listPads() {
  // Called on the navigator, as browsers without it for plain http have no such member at all.
  return "getGamepads" in navigator ? navigator.getGamepads() : undefined;
}

export interface GamepadUse {
  readonly choice: ReadonlySignal<PadChoice>;
  readonly chosen: Signal<number | undefined>;
}

export function useGamepad(): GamepadUse {
  const chosen = useSignal<number | undefined>(undefined);
  const choice = useSignal<PadChoice>({ kind: "none" });
  useEffect(() => {
    let used: number | undefined;
    const poll = () => {
      const next = choosePad(listPads(), chosen.peek());
      const pad = next.kind === "ready" ? next.pad : undefined;
      if (used !== undefined && pad?.index !== used) {
        drive.releaseInput("gamepad");
        drive.lock("gamepad");
      }
      used = pad?.index;
      if (pad !== undefined) {
        drive.setInput("gamepad", padReading(pad));
      }
      if (describe(next) !== describe(choice.peek())) {
        choice.value = next;
      }
    };
    const timer = setInterval(poll, periodMs);
    return () => {
      clearInterval(timer);
      drive.releaseInput("gamepad");
    };
  }, []);
  return { choice, chosen };
}

// What people see of it, which changes far more seldom than the sticks.
function describe(choice: PadChoice): string {
  const pads = "pads" in choice ? choice.pads.map((pad) => `${pad.index} ${pad.id}`) : [];
  return [choice.kind, choice.kind === "ready" ? choice.pad.index : "", ...pads].join("\n");
}
