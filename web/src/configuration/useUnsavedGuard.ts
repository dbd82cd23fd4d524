import type { ComponentChildren } from "preact";
import { useEffect } from "preact/hooks";
import { guardLeaving } from "../frame/guards";
import { confirm } from "../kit/questions";

export interface Unsaved {
  /** How many edits would be lost. */
  readonly count: () => number;
  readonly title: string;
  readonly body: (count: number) => ComponentChildren;
  readonly action: string;
}

/** Asks before edits are lost, to another page of the interface as well as to a closed tab. */
export function useUnsavedGuard(unsaved: Unsaved): void {
  useEffect(() => {
    const stopGuarding = guardLeaving(async () => {
      const count = unsaved.count();
      const { title, action } = unsaved;
      const question = { title, body: unsaved.body(count), action, danger: true };
      return count === 0 || confirm(question);
    });
    // What the browser asks then is its own text.
    const onUnload = (event: BeforeUnloadEvent) => {
      if (unsaved.count() > 0) {
        event.preventDefault();
      }
    };
    addEventListener("beforeunload", onUnload);
    return () => {
      stopGuarding();
      removeEventListener("beforeunload", onUnload);
    };
  }, [unsaved]);
}
