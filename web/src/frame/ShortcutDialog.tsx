import { signal } from "@preact/signals";
import { Dialog } from "../kit/Dialog";
import * as texts from "../texts/frame";
import { ShortcutList } from "./ShortcutList";

export const shortcutsShown = signal(false);

export function ShortcutDialog() {
  return shortcutsShown.value ? (
    <Dialog
      title={texts.shortcuts}
      onClose={() => {
        shortcutsShown.value = false;
      }}
    >
      <ShortcutList />
    </Dialog>
  ) : null;
}
