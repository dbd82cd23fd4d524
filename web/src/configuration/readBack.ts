import { arrayOf, asString, field } from "../data/decode";
import type { ConfigChange } from "./changes";
import { type ConfigFile, leavesOf } from "./tree";

export interface NotTaken extends ConfigChange {
  /** What the file holds instead; undefined where the key or its file is gone. */
  readonly found: string | undefined;
}

/** The changes that the file does not show. The daemon's reply tells nothing of them. */
export function notTakenIn(
  files: readonly ConfigFile[],
  changes: readonly ConfigChange[],
): NotTaken[] {
  const found = new Map(leavesOf(files).map((leaf) => [leaf.key, leaf.value]));
  return changes
    .filter(({ leaf, value }) => found.get(leaf.key) !== value)
    .map((change) => ({ ...change, found: found.get(change.leaf.key) }));
}

/** The daemons that have to be restarted, each once. */
export function daemonsIn(reply: unknown): string[] {
  return [...new Set(arrayOf(field(reply, "daemons"), asString) ?? [])];
}
