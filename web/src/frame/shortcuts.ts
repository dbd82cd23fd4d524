import { focusOr } from "./focusKeeper";
import { navigate } from "./guards";
import { commandOf } from "./keys";
import { pages } from "./pages";
import { hashOf } from "./route";
import { shortcutsShown } from "./ShortcutDialog";
import { stopAll } from "./stopAll";

const text = "input:not([type=checkbox], [type=radio], [type=range]), textarea, select";
const control = "button, a, summary, input, dialog, [tabindex='0'], [role=slider]";

function focusOf(target: EventTarget | null): "nothing" | "control" | "text" {
  if (!(target instanceof Element)) {
    return "nothing";
  }
  if (target.closest(text)) {
    return "text";
  }
  return target.closest(control) ? "control" : "nothing";
}

export function startShortcuts(): void {
  addEventListener(
    "keydown",
    (event) => {
      const command = commandOf(event, focusOf(focusOr(event.target)));
      if (command === undefined) {
        return;
      }
      if (command.kind === "stop") {
        stopAll();
        if (event.key === " ") {
          event.preventDefault();
        }
        return;
      }
      const page = command.kind === "page" ? pages[command.index] : undefined;
      if (command.kind === "shortcuts") {
        event.preventDefault();
        shortcutsShown.value = true;
      } else if (page !== undefined) {
        event.preventDefault();
        navigate(hashOf(page.path));
      }
    },
    { capture: true },
  );
}
