import { type ConfigFile, type ConfigLeaf, leavesOf } from "./tree";

/** New values by the key of their leaf. */
export type Edits = Readonly<Record<string, string>>;

export interface ConfigChange {
  readonly leaf: ConfigLeaf;
  readonly value: string;
}

export type ValueProblem = "control" | "blank";

export function valueIn(edits: Edits, leaf: ConfigLeaf): string {
  return edits[leaf.key] ?? leaf.value;
}

export function isChanged(edits: Edits, leaf: ConfigLeaf): boolean {
  return valueIn(edits, leaf) !== leaf.value;
}

/** Edits with a new value for a leaf; one that is as in the file is no edit. */
export function withEdit(edits: Edits, leaf: ConfigLeaf, value: string): Edits {
  const { [leaf.key]: _, ...others } = edits;
  return value === leaf.value ? others : { ...others, [leaf.key]: value };
}

/** Leaves that are gone have no change: nothing of theirs could be written. */
export function changesOf(files: readonly ConfigFile[], edits: Edits): ConfigChange[] {
  return leavesOf(files)
    .filter((leaf) => isChanged(edits, leaf))
    .map((leaf) => ({ leaf, value: valueIn(edits, leaf) }));
}

/** A line break would begin another key, and blanks at the end do not survive the reading. */
export function problemOfValue(value: string): ValueProblem | undefined {
  if (/[\p{Cc}\p{Cs}\u2028\u2029]/u.test(value)) {
    return "control";
  }
  return value !== value.trimEnd() ? "blank" : undefined;
}

export function bodyOf(changes: readonly ConfigChange[]): unknown {
  return changes.map(({ leaf, value }) => ({
    file: leaf.file,
    group: leaf.group,
    name: leaf.name,
    value,
  }));
}
