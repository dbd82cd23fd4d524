const newestWeight = 0.3;
const slowAboveMs = 150;
const fastBelowMs = 120;

/** Tells whether the link is too slow for full speed, without flickering around the border. */
export class LinkSpeed {
  #averageMs: number | undefined;
  #isSlow = false;

  note(roundTripMs: number): void {
    const before = this.#averageMs ?? roundTripMs;
    this.#averageMs = before + newestWeight * (roundTripMs - before);
    if (this.#averageMs > slowAboveMs) {
      this.#isSlow = true;
    } else if (this.#averageMs < fastBelowMs) {
      this.#isSlow = false;
    }
  }

  get isSlow(): boolean {
    return this.#isSlow;
  }
}
