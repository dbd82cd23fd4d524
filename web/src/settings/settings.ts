import { effect, type Signal, signal } from "@preact/signals";

interface Entry {
  readonly value: Signal<unknown>;
  readonly defaultValue: unknown;
  readonly validate: (value: unknown) => unknown;
}

const prefix = "tessarad.";
const entries = new Map<string, Entry>();

function stored(key: string): string | null {
  try {
    return globalThis.localStorage?.getItem(prefix + key) ?? null;
  } catch {
    return null;
  }
}

function store(key: string, value: unknown): void {
  try {
    globalThis.localStorage?.setItem(prefix + key, JSON.stringify(value));
  } catch {
    // Where the browser stores nothing, the setting lasts until the page is loaded again.
  }
}

function parsed(text: string | null): unknown {
  try {
    return text === null ? undefined : JSON.parse(text);
  } catch {
    return undefined;
  }
}

/**
 * A value that this browser keeps. `validate` gets whatever was stored or imported and returns it
 * in its type, or undefined where it does not fit: then the default holds.
 */
export function setting<T>(
  key: string,
  defaultValue: T,
  validate: (value: unknown) => T | undefined,
): Signal<T> {
  const value = signal<T>(validate(parsed(stored(key))) ?? defaultValue);
  entries.set(key, { value: value as Signal<unknown>, defaultValue, validate });
  let first = true;
  effect(() => {
    const next = value.value;
    // What is stored already need not be written, and a default must not pin itself.
    if (!first) {
      store(key, next);
    }
    first = false;
  });
  return value;
}

export function exportSettings(): string {
  const values = [...entries].map(([key, entry]) => [key, entry.value.peek()]);
  return `${JSON.stringify(Object.fromEntries(values), undefined, 2)}\n`;
}

/** Takes what fits and names what does not; undefined where the text holds no settings at all. */
export function importSettings(text: string): { taken: string[]; skipped: string[] } | undefined {
  const values = parsed(text);
  if (typeof values !== "object" || values === null || Array.isArray(values)) {
    return undefined;
  }
  const taken: string[] = [];
  const skipped: string[] = [];
  for (const [key, value] of Object.entries(values)) {
    const entry = entries.get(key);
    const valid = entry?.validate(value);
    if (entry === undefined || valid === undefined) {
      skipped.push(key);
    } else {
      entry.value.value = valid;
      taken.push(key);
    }
  }
  return { taken, skipped };
}

export function resetSettings(): void {
  for (const entry of entries.values()) {
    entry.value.value = entry.defaultValue;
  }
}

/** A setting changed in another tab of this browser holds here too. */
export function followOtherTabs(): void {
  globalThis.addEventListener?.("storage", (event: StorageEvent) => {
    const entry = event.key?.startsWith(prefix)
      ? entries.get(event.key.slice(prefix.length))
      : undefined;
    const valid = entry?.validate(parsed(event.newValue));
    if (entry !== undefined && valid !== undefined) {
      entry.value.value = valid;
    }
  });
}
