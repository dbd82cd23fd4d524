import type { Point } from "./geometry";

export interface TracePoint extends Point {
  readonly time: number;
  readonly phi: number;
}

const gapMs = 1000;

// The way of the last seconds, in the order of the readings.
export class Trace {
  readonly #keepMs: number;
  #points: TracePoint[] = [];

  constructor(keepMs = 30_000) {
    this.#keepMs = keepMs;
  }

  add(point: TracePoint): void {
    if (![point.time, point.x, point.y, point.phi].every(Number.isFinite)) {
      return;
    }
    const last = this.#points.at(-1);
    if (last !== undefined && point.time <= last.time) {
      return;
    }
    this.#points.push(point);
    this.forget(point.time);
  }

  forget(now: number): void {
    const oldest = now - this.#keepMs;
    const firstKept = this.#points.findIndex((point) => point.time >= oldest);
    if (firstKept !== 0) {
      this.#points = firstKept < 0 ? [] : this.#points.slice(firstKept);
    }
  }

  get points(): readonly TracePoint[] {
    return this.#points;
  }

  // Lines that are interrupted where readings were missing, as nobody knows the way in between.
  get lines(): TracePoint[][] {
    const lines: TracePoint[][] = [];
    let previous: TracePoint | undefined;
    for (const point of this.#points) {
      if (previous === undefined || point.time - previous.time > gapMs) {
        lines.push([]);
      }
      lines.at(-1)?.push(point);
      previous = point;
    }
    return lines;
  }
}

export function lengthOf(lines: readonly (readonly Point[])[]): number {
  let length = 0;
  for (const line of lines) {
    for (let index = 1; index < line.length; index += 1) {
      const from = line[index - 1];
      const to = line[index];
      if (from !== undefined && to !== undefined) {
        length += Math.hypot(to.x - from.x, to.y - from.y);
      }
    }
  }
  return length;
}
