type Job = () => Promise<unknown>;

/** Starts jobs in the order of their arrival, never more at a time than the limit of that moment. */
export class RequestQueue {
  readonly #limit: () => number;
  readonly #waiting: Job[] = [];
  #running = 0;

  constructor(limit: () => number) {
    this.#limit = limit;
  }

  get running(): number {
    return this.#running;
  }

  get waiting(): number {
    return this.#waiting.length;
  }

  /** What a person has asked for goes to the front: it must not wait behind what merely refreshes. */
  run<T>(job: () => Promise<T>, place: "front" | "back" = "back"): Promise<T> {
    return new Promise<T>((resolve, reject) => {
      const started = () => job().then(resolve, reject);
      if (place === "front") {
        this.#waiting.unshift(started);
      } else {
        this.#waiting.push(started);
      }
      this.#startNext();
    });
  }

  #startNext(): void {
    while (this.#running < this.#limit()) {
      const job = this.#waiting.shift();
      if (job === undefined) {
        return;
      }
      this.#running += 1;
      void job().finally(() => {
        this.#running -= 1;
        this.#startNext();
      });
    }
  }
}
