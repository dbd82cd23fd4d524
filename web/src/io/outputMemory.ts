import { type ReadonlySignal, signal } from "@preact/signals";
import { arrayOf, asBoolean, asNumber, field } from "../data/decode";

/** What this browser has switched; the robot can't be asked for it. */
export interface OutputState {
  readonly values: readonly boolean[];
  /** Milliseconds since 1970. */
  readonly setAt: number;
}

/** What the memory needs of the browser, so that tests can play it. */
export interface MemoryDeps {
  load(): string | null;
  save(text: string | null): void;
  /** Tells the other tabs that something was saved. */
  announce(): void;
}

/** After a longer silence the robot may have been switched off and on again. */
export const forgetAfterLostMs = 30_000;

/** So long may nobody have looked at the robot from this browser, with the same doubt. */
export const forgetAfterUnseenMs = 600_000;

/**
 * Remembers what one array of outputs was last set to, for all tabs of this browser. It is unknown
 * again as soon as there is reason to doubt it.
 */
export class OutputMemory {
  readonly #count: number;
  readonly #deps: MemoryDeps;
  readonly #state = signal<OutputState | undefined>(undefined);
  #seenAt: number | undefined;

  constructor(count: number, deps: MemoryDeps) {
    this.#count = count;
    this.#deps = deps;
    this.reload();
  }

  get state(): ReadonlySignal<OutputState | undefined> {
    return this.#state;
  }

  /** Takes over what another tab has saved. */
  reload(): void {
    const stored = decodeStored(this.#deps.load(), this.#count);
    this.#state.value = stored?.state;
    this.#seenAt = stored?.seenAt;
  }

  remember(values: readonly boolean[], now: number): void {
    this.#state.value = { values: [...values], setAt: now };
    this.#seenAt = now;
    this.#save();
    this.#deps.announce();
  }

  forget(): void {
    if (this.#state.peek() !== undefined) {
      this.#state.value = undefined;
      this.#save();
      this.#deps.announce();
    }
  }

  /** To be called again and again while the robot answers. */
  seen(now: number): void {
    if (this.#state.peek() === undefined) {
      return;
    }
    if (this.#seenAt !== undefined && Math.abs(now - this.#seenAt) > forgetAfterUnseenMs) {
      this.forget();
      return;
    }
    this.#seenAt = now;
    this.#save();
  }

  /** To be called again and again while the robot doesn't answer. */
  lost(since: number, now: number): void {
    if (now - since > forgetAfterLostMs) {
      this.forget();
    }
  }

  #save(): void {
    const state = this.#state.peek();
    this.#deps.save(
      state === undefined ? null : JSON.stringify({ ...state, seenAt: this.#seenAt }),
    );
  }
}

function decodeStored(
  text: string | null,
  count: number,
): { state: OutputState; seenAt: number } | undefined {
  let json: unknown;
  try {
    json = JSON.parse(text ?? "null");
  } catch {
    return undefined;
  }
  const values = arrayOf(field(json, "values"), asBoolean);
  const setAt = asNumber(field(json, "setAt"));
  const seenAt = asNumber(field(json, "seenAt"));
  return values?.length === count && setAt !== undefined && seenAt !== undefined
    ? { state: { values, setAt }, seenAt }
    : undefined;
}
