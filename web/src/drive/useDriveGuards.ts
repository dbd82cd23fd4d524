import { useEffect } from "preact/hooks";
import { drive } from "./drive";
import { listen } from "./listen";

/** Nobody drives what nobody sees: whatever takes the page away locks the drive. */
export function useDriveGuards(): void {
  useEffect(() => {
    const stop = listen(
      ({ type }) => {
        if (type === "pagehide" || type === "freeze") {
          drive.leave();
        } else if (type !== "visibilitychange") {
          drive.lock(type === "blur" ? "blur" : "offline");
        } else if (document.visibilityState === "hidden") {
          drive.lock("hidden");
        }
      },
      [document, "visibilitychange", "freeze"],
      [window, "blur", "offline", "pagehide"],
    );
    return () => {
      stop();
      drive.lock("leaving");
    };
  }, []);
}
