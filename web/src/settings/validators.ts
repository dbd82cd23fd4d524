/** Makers of `validate` functions for settings. */

export function oneOf<const T extends string | number>(
  ...choices: readonly T[]
): (value: unknown) => T | undefined {
  return (value) => choices.find((choice) => choice === value);
}

export function numberWithin(least: number, most: number): (value: unknown) => number | undefined {
  return (value) =>
    typeof value === "number" && value >= least && value <= most ? value : undefined;
}

export function anyBoolean(value: unknown): boolean | undefined {
  return typeof value === "boolean" ? value : undefined;
}
