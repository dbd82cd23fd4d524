import { useEffect } from "preact/hooks";
import { drive } from "./drive";
import { keyMapName } from "./driveSettings";
import { HeldKeys, keyMaps } from "./keys";
import { listen } from "./listen";

// Choosing a speed leaves the focus on a radio button, which has no use for the keys that drive.
const controls =
  "input:not([type=radio]), select, textarea, button, a, summary, dialog, [contenteditable]";

function belongsToControl(target: EventTarget | null): boolean {
  return (
    (target instanceof Element && target.closest(controls) !== null) ||
    document.querySelector("dialog[open]") !== null
  );
}

/** Shift is the dead-man switch, a direction key says where to. */
export function useKeyboard(): void {
  useEffect(() => {
    const keys = new HeldKeys();
    const onKey = (event: KeyboardEvent) => {
      const isDown = event.type === "keydown";
      if (isDown && belongsToControl(event.target)) {
        drive.setInput("keys", keys.clear());
        return;
      }
      const map = keyMaps[keyMapName.peek()];
      const isCommand = event.ctrlKey || event.altKey || event.metaKey;
      const change = { code: event.code, isDown, isShiftDown: event.shiftKey, isCommand };
      const reading = keys.note(change, map);
      drive.setInput("keys", reading);
      if (isDown && reading.isHeld && Object.hasOwn(map, event.code)) {
        event.preventDefault();
      }
    };
    const letGo = () => drive.setInput("keys", keys.clear());
    const stopKeys = listen(onKey, [document, "keydown", "keyup"]);
    const stopLosses = listen(letGo, [document, "visibilitychange"], [window, "blur"]);
    const onFocus = ({ target }: Event) => belongsToControl(target) && letGo();
    const stopFocus = listen(onFocus, [document, "focusin"]);
    return () => {
      stopKeys();
      stopFocus();
      stopLosses();
      letGo();
    };
  }, []);
}
