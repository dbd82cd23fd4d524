import { type ReadonlySignal, signal } from "@preact/signals";

export type Sample = number | null;

/** The last rows of a series over time, in memory of a fixed size. */
export class SampleRing {
  readonly capacity: number;
  readonly seriesCount: number;
  /** Rises with every row: charts draw anew. */
  readonly version: ReadonlySignal<number>;

  readonly #version = signal(0);
  readonly #gapAfterMs: number;
  readonly #times: Float64Array;
  readonly #values: Float64Array[];
  #next = 0;
  #length = 0;

  /** Rows further apart than `gapAfterMs` are not joined by a line. */
  constructor(capacity: number, seriesCount: number, gapAfterMs = Number.POSITIVE_INFINITY) {
    this.capacity = capacity;
    this.seriesCount = seriesCount;
    this.version = this.#version;
    this.#gapAfterMs = gapAfterMs;
    this.#times = new Float64Array(capacity);
    this.#values = Array.from({ length: seriesCount }, () => new Float64Array(capacity));
  }

  get length(): number {
    return this.#length;
  }

  get lastTime(): number | undefined {
    return this.#length === 0 ? undefined : this.#times[this.#slot(this.#length - 1)];
  }

  /** Time in milliseconds; what is missing or no finite number becomes a gap. */
  push(time: number, ...values: (Sample | undefined)[]): void {
    const last = this.lastTime;
    if (last !== undefined && time - last > this.#gapAfterMs) {
      this.#append(last + 1, []);
    }
    this.#append(time, values);
    this.#version.value = this.#version.peek() + 1;
  }

  clear(): void {
    this.#next = 0;
    this.#length = 0;
    this.#version.value = this.#version.peek() + 1;
  }

  /** Times in seconds, then the values of each series, oldest first. */
  columns(): [number[], ...Sample[][]] {
    const order = Array.from({ length: this.#length }, (_, index) => this.#slot(index));
    const times = order.map((slot) => (this.#times[slot] ?? 0) / 1000);
    const series = this.#values.map((values) =>
      order.map((slot) => {
        const value = values[slot] ?? Number.NaN;
        return Number.isFinite(value) ? value : null;
      }),
    );
    return [times, ...series];
  }

  latest(series: number): Sample {
    if (this.#length === 0) {
      return null;
    }
    const value = this.#values[series]?.[this.#slot(this.#length - 1)] ?? Number.NaN;
    return Number.isFinite(value) ? value : null;
  }

  #slot(index: number): number {
    return (this.#next - this.#length + index + this.capacity) % this.capacity;
  }

  #append(time: number, values: readonly (Sample | undefined)[]): void {
    this.#times[this.#next] = time;
    this.#values.forEach((column, index) => {
      column[this.#next] = values[index] ?? Number.NaN;
    });
    this.#next = (this.#next + 1) % this.capacity;
    this.#length = Math.min(this.#length + 1, this.capacity);
  }
}
