import { batch, computed, type ReadonlySignal, signal } from "@preact/signals";
import { read } from "../data/requests";
import { type ConfigChange, changesOf, type Edits, problemOfValue, withEdit } from "./changes";
import { type ConfigFile, type ConfigLeaf, decodeConfiguration, leavesOf } from "./tree";

const tree = signal<readonly ConfigFile[] | undefined>(undefined);
const wishes = signal<Edits>({});
const failure = signal(false);

/** The files as last read; undefined before the first time. */
export const files: ReadonlySignal<readonly ConfigFile[] | undefined> = tree;
export const edits: ReadonlySignal<Edits> = wishes;
export const hasFailed: ReadonlySignal<boolean> = failure;

export const changes: ReadonlySignal<readonly ConfigChange[]> = computed(() =>
  changesOf(tree.value ?? [], wishes.value),
);

export const isValid: ReadonlySignal<boolean> = computed(() =>
  changes.value.every(({ value }) => problemOfValue(value) === undefined),
);

/** Reads the files anew; what somebody has edited stays. */
export async function load(): Promise<readonly ConfigFile[] | undefined> {
  const outcome = await read("/data/config", { timeoutMs: 5000 });
  const next = outcome.state === "answer" ? decodeConfiguration(outcome.value) : undefined;
  batch(() => {
    failure.value = next === undefined;
    if (next !== undefined) {
      tree.value = next;
      // What the file holds by now is no edit any more.
      wishes.value = leavesOf(next).reduce<Edits>((kept, leaf) => {
        const wish = wishes.value[leaf.key];
        return wish === undefined ? kept : withEdit(kept, leaf, wish);
      }, wishes.value);
    }
  });
  return next;
}

export function edit(leaf: ConfigLeaf, value: string): void {
  wishes.value = withEdit(wishes.value, leaf, value);
}

export function discard(): void {
  wishes.value = {};
}

/** Whoever loses the role must not go on seeing the files. */
export function forget(): void {
  batch(() => {
    tree.value = undefined;
    wishes.value = {};
    failure.value = false;
  });
}
