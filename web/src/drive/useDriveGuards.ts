import { useEffect } from "preact/hooks";
import { drive } from "./drive";
import type { LockReason } from "./machine";

/** Nobody drives what nobody sees: whatever takes the page away locks the drive. */
export function useDriveGuards(): void {
  useEffect(() => {
    const lockFor = (reason: LockReason) => () => drive.lock(reason);
    const guards: readonly [EventTarget, string, () => void][] = [
      [
        document,
        "visibilitychange",
        () => {
          if (document.visibilityState === "hidden") {
            drive.lock("hidden");
          }
        },
      ],
      [window, "blur", lockFor("blur")],
      [window, "offline", lockFor("offline")],
      [window, "pagehide", () => drive.leave()],
      [document, "freeze", () => drive.leave()],
    ];
    for (const [target, name, guard] of guards) {
      target.addEventListener(name, guard);
    }
    return () => {
      for (const [target, name, guard] of guards) {
        target.removeEventListener(name, guard);
      }
      drive.lock("leaving");
    };
  }, []);
}
