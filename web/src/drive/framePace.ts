export type FrameProblem = "waiting" | "noJpeg" | "unreachable" | "other";

const leastWaitMs = 50;
const mostWaitMs = 250;
const retryMs = 250;
const patientRetryMs = 1000;

/** What the words of a refused image mean. */
export function frameProblem(text: string): FrameProblem {
  if (text.startsWith("No camera connected")) {
    return "waiting";
  }
  return text.startsWith("No jpeg image available") ? "noJpeg" : "other";
}

/**
 * How long to wait before the next request. Each image is given once, so that asking too early is
 * in vain: the wait grows until it fits the camera.
 */
export class FramePace {
  #waitMs = leastWaitMs;
  #failures = 0;
  #hasFrame = false;

  afterFrame(): number {
    this.#failures = 0;
    this.#hasFrame = true;
    this.#waitMs = Math.max(leastWaitMs, this.#waitMs - 1);
    return this.#waitMs;
  }

  afterProblem(problem: FrameProblem): number {
    this.#failures += 1;
    if (problem === "waiting" && this.#hasFrame && this.#failures <= 3) {
      this.#waitMs = Math.min(mostWaitMs, this.#waitMs + 20);
      return this.#waitMs;
    }
    return problem === "waiting" && this.#failures < 20 ? retryMs : patientRetryMs;
  }
}
