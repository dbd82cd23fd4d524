import { type ReadonlySignal, signal } from "@preact/signals";

export type ToastKind = "info" | "success" | "error";

export interface Toast {
  readonly number: number;
  readonly text: string;
  readonly kind: ToastKind;
}

const shownMs = 5000;
const most = 3;

const all = signal<readonly Toast[]>([]);
let count = 0;

export const toasts: ReadonlySignal<readonly Toast[]> = all;

/** Errors stay until they are closed; of the rest the oldest makes room first. */
export function toast(text: string, options: { kind?: ToastKind } = {}): void {
  const kind = options.kind ?? "info";
  // The same words again would only push out what else is to be read.
  const others = all.peek().filter((other) => other.text !== text || other.kind !== kind);
  count += 1;
  const added = { number: count, text, kind };
  all.value = withoutExcess([...others, added]);
  if (kind !== "error") {
    setTimeout(() => dismiss(added.number), shownMs);
  }
}

export function dismiss(number: number): void {
  all.value = all.peek().filter((other) => other.number !== number);
}

function withoutExcess(list: readonly Toast[]): readonly Toast[] {
  if (list.length <= most) {
    return list;
  }
  const passing = list.findIndex((other) => other.kind !== "error");
  const index = passing < 0 || passing === list.length - 1 ? 0 : passing;
  return withoutExcess(list.filter((_, position) => position !== index));
}
