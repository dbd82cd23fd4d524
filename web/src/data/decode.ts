/** Total helpers for JSON of any shape: what is not as wanted is undefined, and nothing throws. */

export type Decoder<T> = (value: unknown) => T | undefined;

export function asNumber(value: unknown): number | undefined {
  return typeof value === "number" && Number.isFinite(value) ? value : undefined;
}

export function asString(value: unknown): string | undefined {
  return typeof value === "string" ? value : undefined;
}

export function asBoolean(value: unknown): boolean | undefined {
  return typeof value === "boolean" ? value : undefined;
}

export function asArray(value: unknown): readonly unknown[] | undefined {
  return Array.isArray(value) ? value : undefined;
}

export function asRecord(value: unknown): Readonly<Record<string, unknown>> | undefined {
  return typeof value === "object" && value !== null && !Array.isArray(value)
    ? (value as Record<string, unknown>)
    : undefined;
}

/** The member of an object, undefined where there is no object or no such member of its own. */
export function field(value: unknown, name: string): unknown {
  const record = asRecord(value);
  return record !== undefined && Object.hasOwn(record, name) ? record[name] : undefined;
}

/** All entries decoded, or undefined as soon as one of them is malformed. */
export function arrayOf<T>(value: unknown, decode: Decoder<T>): T[] | undefined {
  const entries = asArray(value);
  if (entries === undefined) {
    return undefined;
  }
  const decoded: T[] = [];
  for (const entry of entries) {
    const item = decode(entry);
    if (item === undefined) {
      return undefined;
    }
    decoded.push(item);
  }
  return decoded;
}

/** JSON has no word for infinity and NaN: the daemon says null, which is taken as `missing`. */
export function numberOrMissing<M>(value: unknown, missing: M): number | M | undefined {
  return value === null ? missing : asNumber(value);
}

/** JSON has no word for infinity and NaN: the daemon says null, which is no number to show. */
export function asNumberOrNaN(value: unknown): number | undefined {
  return numberOrMissing(value, Number.NaN);
}

/**
 * An object made of members of another object, by name, or of entries of an array, by position.
 * Undefined as soon as one of them is malformed.
 */
export function objectOf<T extends object>(
  json: unknown,
  members: { readonly [K in keyof T]-?: readonly [from: string | number, decode: Decoder<T[K]>] },
): T | undefined {
  const decoded: Partial<T> = {};
  for (const key of Object.keys(members) as (keyof T)[]) {
    const [from, decode] = members[key];
    const entry = typeof from === "number" ? asArray(json)?.[from] : field(json, from);
    const item = decode(entry);
    if (item === undefined) {
      return undefined;
    }
    decoded[key] = item;
  }
  return decoded as T;
}
