import { batch, computed, effect, type ReadonlySignal, type Signal, signal } from "@preact/signals";
import { refreshFactor } from "../settings/general";
import { now } from "./clock";
import { type Freshness, freshnessOf, staleAfterMs } from "./freshness";
import { linkState } from "./link";
import { type ReadOutcome, read } from "./requests";
import { type Role, reaches } from "./roles";
import { pollingPaused } from "./scheduler";
import { role } from "./session";
import { visible } from "./visibility";

export interface ResourceOptions<T> {
  /** Total: undefined for whatever is malformed. */
  decode: (json: unknown) => T | undefined;
  periodMs: number;
  timeoutMs?: number;
  needs?: Role;
  /** The number of a reading: one that stays the same means that nothing new has come. */
  sequenceOf?: (value: T) => number | undefined;
  /** Hands a reply that is no JSON to `decode` as a string. */
  acceptText?: boolean;
}

/** A path that is asked for again and again while somebody looks at it. */
export class Resource<T> {
  readonly path: string;
  readonly value: ReadonlySignal<T | undefined>;
  readonly arrivedAt: ReadonlySignal<number | undefined>;
  readonly freshness: ReadonlySignal<Freshness>;

  readonly #options: ResourceOptions<T>;
  readonly #value = signal<T | undefined>(undefined);
  readonly #arrivedAt = signal<number | undefined>(undefined);
  #inFlight: Promise<ReadOutcome> | undefined;
  readonly #holders = new Set<{ readonly periodMs: number }>();
  readonly #periodMs: Signal<number>;
  #stopPolling: (() => void) | undefined;

  constructor(path: string, options: ResourceOptions<T>) {
    this.path = path;
    this.#options = options;
    this.#periodMs = signal(options.periodMs);
    this.value = this.#value;
    this.arrivedAt = this.#arrivedAt;
    this.freshness = computed(() =>
      freshnessOf(
        now.value,
        this.#arrivedAt.value,
        staleAfterMs(this.#periodMs.value * refreshFactor.value, options.sequenceOf !== undefined),
      ),
    );
  }

  /** One request at a time: who asks while one is under way gets its outcome. */
  refresh(): Promise<ReadOutcome> {
    this.#inFlight ??= this.#ask().finally(() => {
      this.#inFlight = undefined;
    });
    return this.#inFlight;
  }

  /** Polls until the returned function is called; several holders share the fastest polling. */
  hold(periodMs = this.#options.periodMs): () => void {
    const holder = { periodMs };
    this.#holders.add(holder);
    this.#adjust();
    this.#stopPolling ??= this.#poll();
    return () => {
      if (this.#holders.delete(holder) && this.#holders.size === 0) {
        this.#stopPolling?.();
        this.#stopPolling = undefined;
      }
      this.#adjust();
    };
  }

  #adjust(): void {
    const wanted = [...this.#holders].map((holder) => holder.periodMs);
    this.#periodMs.value = wanted.length === 0 ? this.#options.periodMs : Math.min(...wanted);
  }

  async #ask(): Promise<ReadOutcome> {
    const { timeoutMs, acceptText } = this.#options;
    const outcome = await read(this.path, timeoutMs === undefined ? {} : { timeoutMs });
    if (outcome.state === "answer") {
      this.#take(outcome.value, outcome.arrivedAt);
    } else if (outcome.state === "unreadable" && acceptText) {
      this.#take(outcome.text, Date.now());
    }
    return outcome;
  }

  #take(json: unknown, arrivedAt: number): void {
    const value = this.#options.decode(json);
    if (value === undefined) {
      return;
    }
    const { sequenceOf } = this.#options;
    const before = this.#value.peek();
    const repeated =
      sequenceOf !== undefined && before !== undefined && sequenceOf(before) === sequenceOf(value);
    if (!repeated) {
      batch(() => {
        this.#value.value = value;
        this.#arrivedAt.value = arrivedAt;
      });
    }
  }

  #forget(): void {
    batch(() => {
      this.#value.value = undefined;
      this.#arrivedAt.value = undefined;
    });
  }

  #poll(): () => void {
    const { needs } = this.#options;
    const permitted = computed(() => needs === undefined || reaches(role.value, needs));
    const wanted = computed(
      () =>
        permitted.value &&
        visible.value &&
        pollingPaused.value === undefined &&
        linkState.value === "connected",
    );
    let timer: ReturnType<typeof setTimeout> | undefined;
    let round = 0;
    const turn = async (mine: number) => {
      const begun = Date.now();
      await this.refresh();
      if (mine === round) {
        const rest = this.#periodMs.peek() * refreshFactor.peek() - (Date.now() - begun);
        timer = setTimeout(() => void turn(mine), Math.max(rest, 0));
      }
    };
    const stop = () => {
      round += 1;
      clearTimeout(timer);
    };
    const stopWatching = effect(() => {
      stop();
      // Whoever wants it faster need not wait for the slow turn to end.
      this.#periodMs.value;
      if (wanted.value) {
        void turn(round);
      }
    });
    const stopForgetting = effect(() => {
      if (!permitted.value) {
        this.#forget();
      }
    });
    return () => {
      stopWatching();
      stopForgetting();
      stop();
    };
  }
}
