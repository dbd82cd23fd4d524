// A control that goes, or that is switched off while its order is under way, leaves the focus to the
// page as a whole: the next Tab would begin at the top, and Space would stop the robot.

let last: HTMLElement | undefined;
let around: readonly Element[] = [];
let isLost = false;

const isDisabled = (element: Element) => element.matches(":disabled");

/** Where a key belongs: to the control whose order is under way and that gets the focus back, if any. */
export function focusOr(target: EventTarget | null): EventTarget | null {
  return isLost && last?.isConnected ? last : target;
}

function forget(): void {
  last = undefined;
  isLost = false;
}

function restore(): void {
  if (last === undefined) {
    return;
  }
  isLost ||= !last.isConnected || isDisabled(last);
  const active = document.activeElement;
  if (!isLost || (active !== document.body && active !== last)) {
    return;
  }
  if (last.isConnected) {
    if (!isDisabled(last)) {
      isLost = false;
      last.focus({ preventScroll: true });
    }
    return;
  }
  const place = around.find((element) => element.isConnected);
  forget();
  if (place instanceof HTMLElement) {
    place.tabIndex = -1;
    place.focus({ preventScroll: true });
  }
}

/**
 * Keeps the focus of the keyboard where it was, or as near as there still is something. Who uses a
 * pointer is left alone.
 */
export function keepFocus(root: Element): void {
  let isKeyboard = false;
  const remember = (target: EventTarget | null) => {
    forget();
    if (isKeyboard && target instanceof HTMLElement && root.contains(target)) {
      last = target;
      around = [...ancestors(target, root)];
    }
  };
  addEventListener("keydown", () => {
    isKeyboard = true;
    if (document.activeElement !== document.body) {
      remember(document.activeElement);
    }
  });
  addEventListener("focusin", ({ target }) => remember(target));
  const leave = () => {
    isKeyboard = false;
    forget();
  };
  addEventListener("pointerdown", leave, { capture: true });
  new MutationObserver(restore).observe(root, {
    subtree: true,
    childList: true,
    attributeFilter: ["disabled"],
  });
}

function* ancestors(element: Element, root: Element): Generator<Element> {
  for (let each = element.parentElement; each && each !== root; each = each.parentElement) {
    yield each;
  }
}
