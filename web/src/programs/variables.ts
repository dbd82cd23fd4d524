import { arrayOf } from "../data/decode";
import { textFields } from "./textFields";

export interface Variable {
  readonly name: string;
  readonly value: string;
}

export function decodeVariables(json: unknown): Variable[] | undefined {
  return arrayOf(json, (entry) => textFields(entry, "name", "value"));
}

export function decodeOutput(json: unknown): string[] | undefined {
  return arrayOf(json, (entry) => textFields(entry, "value")?.value);
}

/** The value as a number that a chart can show. */
export function numericValue(value: string): number | undefined {
  const number = /^\s*[+-]?(\d+\.?\d*|\.\d+)(e[+-]?\d+)?\s*$/i.test(value) ? Number(value) : NaN;
  return Number.isFinite(number) ? number : undefined;
}

export interface ShownVariable extends Variable {
  /** How often the value was seen to change. */
  readonly changes: number;
}

export function countChanges(
  before: readonly ShownVariable[],
  variables: readonly Variable[],
): ShownVariable[] {
  const known = new Map(before.map((variable) => [variable.name, variable]));
  return variables.map(({ name, value }) => {
    const old = known.get(name);
    const changes = old === undefined ? 0 : old.changes + (old.value === value ? 0 : 1);
    return { name, value, changes };
  });
}
