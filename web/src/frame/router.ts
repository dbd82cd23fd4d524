import { type ReadonlySignal, signal } from "@preact/signals";
import { mayLeave } from "./guards";
import { pathOf } from "./route";

const path = signal("");

/** The path of the page that is shown. */
export const shownPath: ReadonlySignal<string> = path;

export function startRouter(home: string): void {
  let shownHash = location.hash;
  let asking = false;
  path.value = pathOf(shownHash) || home;

  addEventListener("hashchange", async () => {
    const wanted = pathOf(location.hash) || home;
    if (wanted === path.value) {
      shownHash = location.hash;
      return;
    }
    if (asking) {
      return;
    }
    asking = true;
    const leave = await mayLeave();
    asking = false;
    if (leave) {
      shownHash = location.hash;
      path.value = pathOf(shownHash) || home;
    } else {
      history.replaceState(null, "", shownHash || "#/");
    }
  });
}
