export type Command = { kind: "stop" } | { kind: "shortcuts" } | { kind: "page"; index: number };

export interface KeyPress {
  readonly key: string;
  readonly code: string;
  readonly altKey: boolean;
  readonly ctrlKey: boolean;
  readonly metaKey: boolean;
  readonly repeat: boolean;
}

/** What a key means; `focus` is what would get it otherwise. */
export function commandOf(
  press: KeyPress,
  focus: "nothing" | "control" | "text",
): Command | undefined {
  if (press.key === "Escape") {
    return { kind: "stop" };
  }
  if (press.ctrlKey || press.metaKey || press.repeat) {
    return undefined;
  }
  const digit = /^Digit([1-9])$/.exec(press.code)?.[1];
  if (press.altKey) {
    return digit === undefined ? undefined : { kind: "page", index: Number(digit) - 1 };
  }
  if (press.key === " " && focus === "nothing") {
    return { kind: "stop" };
  }
  return press.key === "?" && focus !== "text" ? { kind: "shortcuts" } : undefined;
}
