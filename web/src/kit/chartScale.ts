const steps = [1, 2, 5, 10];
const secondSteps = [1, 2, 5, 10, 15, 30, 60, 120, 300, 600, 900, 1800, 3600];

/** The least and the most of all values, with some room; a value that stands still is in the middle. */
export function rangeOf(columns: readonly (readonly (number | null)[])[]): [number, number] {
  let least = Number.POSITIVE_INFINITY;
  let most = Number.NEGATIVE_INFINITY;
  for (const column of columns) {
    for (const value of column) {
      if (value !== null) {
        least = Math.min(least, value);
        most = Math.max(most, value);
      }
    }
  }
  if (least > most) {
    return [0, 1];
  }
  const room = Math.max((most - least) * 0.1, 0.05, Math.abs(most) * 1e-9);
  return [least - room, most + room];
}

/** A round distance between at most `count` ticks, and the digits that tell them apart. */
export function tickStep(span: number, count: number): { step: number; digits: number } {
  const wanted = span / Math.max(count, 1);
  const power = Math.floor(Math.log10(wanted));
  const factor = steps.find((candidate) => candidate * 10 ** power >= wanted * 0.999_999) ?? 10;
  const step = factor * 10 ** power;
  return { step, digits: Math.min(Math.max(-Math.floor(Math.log10(step)), 0), 6) };
}

/** A distance between ticks of time that people count in, in seconds. */
export function secondStep(span: number, count: number): number {
  const wanted = span / Math.max(count, 1);
  return secondSteps.find((candidate) => candidate >= wanted) ?? Math.ceil(wanted / 3600) * 3600;
}

/** The multiples of a step within a range. */
export function ticksWithin(least: number, most: number, step: number): number[] {
  const first = Math.ceil(least / step);
  const count = Math.max(0, Math.min(Math.floor(most / step) - first + 1, 50));
  return Array.from({ length: count }, (_, index) => (first + index) * step);
}
