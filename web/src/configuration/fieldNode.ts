import { arrayOf, asString, field } from "../data/decode";

/** What all leaves of the robot's trees have. */
export interface FieldNode {
  readonly name: string;
  readonly value: string;
  /** Undefined for a free text. */
  readonly choices: readonly string[] | undefined;
}

export function decodeField(json: unknown): FieldNode | undefined {
  const name = asString(field(json, "name"));
  const value = asString(field(json, "value"));
  const isSelect = field(json, "type") === "select";
  const choices = isSelect ? (arrayOf(field(json, "params"), asString) ?? []) : undefined;
  return name === undefined || value === undefined ? undefined : { name, value, choices };
}
