import { useEffect } from "preact/hooks";
import { guardLeaving } from "../frame/guards";
import { confirm } from "../kit/questions";
import * as texts from "../texts/editing";

/** Asks before edits are lost, to another page of the interface as well as to a closed tab. */
export function useUnsavedGuard(countUnsaved: () => number): void {
  useEffect(() => {
    const stopGuarding = guardLeaving(async () => {
      const count = countUnsaved();
      return (
        count === 0 ||
        confirm({
          title: texts.leaveTitle,
          body: texts.unsaved(count),
          action: texts.leaveAction,
          danger: true,
        })
      );
    });
    // What the browser asks then is its own text.
    const onUnload = (event: BeforeUnloadEvent) => {
      if (countUnsaved() > 0) {
        event.preventDefault();
      }
    };
    addEventListener("beforeunload", onUnload);
    return () => {
      stopGuarding();
      removeEventListener("beforeunload", onUnload);
    };
  }, [countUnsaved]);
}
