import type { OutputEntry, Scrollback } from "./ringMerge";

/** A stretch of output that is painted as one piece: plain lines or a mark. */
export type OutputPart =
  | { readonly kind: "lines"; readonly text: string }
  | { readonly kind: "gap" | "start" };

export interface OutputBlock {
  readonly id: number;
  readonly parts: readonly OutputPart[];
}

const blockSize = 200;

/** How many entries there ever were. */
export function entryCount({ dropped, entries }: Scrollback): number {
  return dropped + entries.length;
}

export function filteredEntries(
  entries: readonly OutputEntry[],
  filter: string,
): readonly OutputEntry[] {
  const wanted = filter.trim().toLowerCase();
  return wanted === ""
    ? entries
    : entries.filter((entry) => entry.kind === "line" && entry.text.toLowerCase().includes(wanted));
}

/** Blocks keep their borders while lines come and go, so that only the outer ones are painted. */
export function blocksOf(entries: readonly OutputEntry[], firstNumber: number): OutputBlock[] {
  const blocks: OutputBlock[] = [];
  for (let begin = 0; begin < entries.length; ) {
    const id = Math.floor((firstNumber + begin) / blockSize);
    const end = (id + 1) * blockSize - firstNumber;
    blocks.push({ id, parts: partsOf(entries.slice(begin, end)) });
    begin = end;
  }
  return blocks;
}

function partsOf(entries: readonly OutputEntry[]): OutputPart[] {
  const parts: OutputPart[] = [];
  let lines: string[] = [];
  const flush = () => {
    if (lines.length > 0) {
      parts.push({ kind: "lines", text: `${lines.join("\n")}\n` });
      lines = [];
    }
  };
  for (const entry of entries) {
    if (entry.kind === "line") {
      lines.push(entry.text);
    } else {
      flush();
      parts.push({ kind: entry.kind });
    }
  }
  flush();
  return parts;
}

/** The whole as the text of a file; marks are lines in dashes. */
export function outputText(
  entries: readonly OutputEntry[],
  marks: Readonly<Record<"gap" | "start", string>>,
): string {
  return entries
    .map((entry) => (entry.kind === "line" ? `${entry.text}\n` : `--- ${marks[entry.kind]} ---\n`))
    .join("");
}

/** A name that sorts by time and that every file system takes. */
export function outputFileName(time: Date): string {
  const digits = (value: number) => String(value).padStart(2, "0");
  const day = [time.getFullYear(), time.getMonth() + 1, time.getDate()].map(digits).join("-");
  const clock = [time.getHours(), time.getMinutes(), time.getSeconds()].map(digits).join("-");
  return `output-${day}-${clock}.txt`;
}
