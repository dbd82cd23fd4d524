import { type ReadonlySignal, signal } from "@preact/signals";
import { addressOf } from "../data/requests";
import { backgroundQueue } from "../data/scheduler";
import { FramePace, type FrameProblem, frameProblem } from "./framePace";

export interface Frame {
  readonly source: string;
  readonly arrivedAt: number;
}

const timeoutMs = 2000;

/** Asks for one picture after the other, the next one only when the last has been drawn. */
export class CameraFeed {
  readonly #frame = signal<Frame | undefined>(undefined);
  readonly #problem = signal<FrameProblem | undefined>("waiting");
  readonly #pace = new FramePace();
  #abort = new AbortController();
  #timer: ReturnType<typeof setTimeout> | undefined;
  #former: string | undefined;

  readonly frame: ReadonlySignal<Frame | undefined> = this.#frame;
  /** Why there is no new picture; the last one stays. */
  readonly problem: ReadonlySignal<FrameProblem | undefined> = this.#problem;

  /** Until the returned function is called; the last picture stays. */
  run(): () => void {
    this.#abort = new AbortController();
    void this.#ask();
    return () => {
      this.#abort.abort();
      clearTimeout(this.#timer);
    };
  }

  /** Gives the memory of the pictures back. */
  dispose(): void {
    this.#revoke(this.#former);
    this.#revoke(this.#frame.peek()?.source);
    this.#frame.value = undefined;
  }

  /** The picture is on the screen, or can't be shown. */
  drawn(isShown: boolean): void {
    this.#revoke(this.#former);
    this.#former = undefined;
    if (!isShown) {
      this.#problem.value = "noJpeg";
    }
    this.#later(isShown ? this.#pace.afterFrame() : this.#pace.afterProblem("noJpeg"));
  }

  async #ask(): Promise<void> {
    const { signal: ended } = this.#abort;
    const outcome = await backgroundQueue.run(() => this.#fetch(ended), "front");
    if (ended.aborted) {
      return;
    }
    if (typeof outcome === "string") {
      this.#problem.value = outcome;
      this.#later(this.#pace.afterProblem(outcome));
      return;
    }
    this.#former = this.#frame.peek()?.source;
    this.#problem.value = undefined;
    this.#frame.value = { source: URL.createObjectURL(outcome), arrivedAt: performance.now() };
    // A picture that is out of sight may never be drawn.
    this.#later(timeoutMs);
  }

  async #fetch(ended: AbortSignal): Promise<Blob | FrameProblem> {
    if (ended.aborted) {
      return "unreachable";
    }
    const patience = new AbortController();
    const giveUp = () => patience.abort();
    const timer = setTimeout(giveUp, timeoutMs);
    ended.addEventListener("abort", giveUp);
    try {
      const response = await fetch(addressOf("/cam0"), {
        cache: "no-store",
        signal: patience.signal,
      });
      return response.ok ? await response.blob() : frameProblem(await response.text());
    } catch {
      return "unreachable";
    } finally {
      clearTimeout(timer);
      ended.removeEventListener("abort", giveUp);
    }
  }

  #later(ms: number): void {
    clearTimeout(this.#timer);
    if (!this.#abort.signal.aborted) {
      this.#timer = setTimeout(() => void this.#ask(), ms);
    }
  }

  #revoke(source: string | undefined): void {
    if (source !== undefined) {
      URL.revokeObjectURL(source);
    }
  }
}
