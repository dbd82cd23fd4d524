const failuresUntilLost = 2;
const silenceUntilLostMs = 3000;

/** Judges from the outcomes of all requests whether the daemon can be reached. */
export class LinkMonitor {
  #failures = 0;
  #lastSuccess: number;
  #lostSince: number | undefined;

  constructor(now: number) {
    this.#lastSuccess = now;
  }

  /** When the link was lost, undefined while it holds. */
  get lostSince(): number | undefined {
    return this.#lostSince;
  }

  succeeded(now: number): void {
    this.#failures = 0;
    this.#lastSuccess = now;
    this.#lostSince = undefined;
  }

  failed(now: number): void {
    this.#failures += 1;
    const silent = now - this.#lastSuccess >= silenceUntilLostMs;
    if (this.#lostSince === undefined && (silent || this.#failures >= failuresUntilLost)) {
      this.#lostSince = now;
    }
  }
}

/** How long to wait before the attempt of this number, counted from 0. */
export function retryDelayMs(attempt: number): number {
  return 1000 * 2 ** Math.min(Math.max(attempt, 0), 3);
}
