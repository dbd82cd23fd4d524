import { type Signal, signal } from "@preact/signals";
import type { ComponentChildren, VNode } from "preact";
import { useId, useLayoutEffect, useRef } from "preact/hooks";
import * as kit from "../texts/kit";
import { Icon } from "./Icon";

export interface DialogProps {
  title: ComponentChildren;
  onClose: () => void;
  actions?: ComponentChildren;
  children?: ComponentChildren;
  /** The dialog goes only by its own actions. */
  blocking?: boolean;
}

/**
 * What every dialog shows beside its title. A modal dialog takes the rest of the page out of reach,
 * and the button that stops the robot must stay in reach.
 */
export const dialogCompanion: Signal<(() => VNode | null) | undefined> = signal(undefined);

export function Dialog({ title, onClose, actions, children, blocking }: DialogProps) {
  const id = useId();
  const element = useRef<HTMLDialogElement>(null);
  useLayoutEffect(() => {
    const dialog = element.current;
    const before = document.activeElement;
    dialog?.showModal();
    // The first control would be the companion or the cross: neither is what the dialog is about.
    for (const wanted of ["[autofocus]", "footer button", "h2"]) {
      const target = dialog?.querySelector<HTMLElement>(wanted);
      if (target) {
        target.focus();
        break;
      }
    }
    return () => {
      dialog?.close();
      if (before instanceof HTMLElement) {
        before.focus();
      }
    };
  }, []);
  const Companion = dialogCompanion.value;
  return (
    <dialog
      ref={element}
      class="dialog"
      aria-labelledby={id}
      onCancel={(event) => {
        event.preventDefault();
        if (!blocking) {
          onClose();
        }
      }}
      // Browsers let one of several Escapes in a row close any dialog.
      onClose={() => blocking && element.current?.showModal()}
    >
      <header>
        <h2 id={id} tabIndex={-1}>
          {title}
        </h2>
        {Companion && <Companion />}
        {!blocking && (
          <button type="button" class="button plain bare" aria-label={kit.close} onClick={onClose}>
            <Icon name="close" />
          </button>
        )}
      </header>
      <div class="content">{children}</div>
      {actions && <footer>{actions}</footer>}
    </dialog>
  );
}
