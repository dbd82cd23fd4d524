import { asString, field } from "../data/decode";

/** The named members of an object, all of which must be texts. */
export function textFields<Name extends string>(
  json: unknown,
  ...names: Name[]
): Record<Name, string> | undefined {
  const entries = names.map((name) => [name, asString(field(json, name))] as const);
  return entries.every(([, text]) => text !== undefined)
    ? (Object.fromEntries(entries) as Record<Name, string>)
    : undefined;
}
