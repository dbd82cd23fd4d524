/**
 * Turns successive readings of the program's output into one scrollback.
 *
 * The daemon keeps only the last lines and doesn't number them. So two readings are laid over each
 * other at the longest stretch that ends the older and begins the newer one. Where there is none,
 * lines went by unread, and a gap mark says so. A run that prints the same line over and over
 * can't be told apart from one that prints nothing.
 */

export type OutputEntry =
  | { readonly kind: "line"; readonly text: string }
  | { readonly kind: "gap" }
  | { readonly kind: "start" };

export interface Scrollback {
  readonly entries: readonly OutputEntry[];
  // The last reading, which the next one is laid over.
  readonly ring: readonly string[];
  // How many entries have left at the front.
  readonly dropped: number;
}

export const scrollbackLimit = 5000;

export const emptyScrollback: Scrollback = { entries: [], ring: [], dropped: 0 };

/** Length of the longest end of older that is a beginning of newer, in linear time. */
export function overlapLength(older: readonly string[], newer: readonly string[]): number {
  const borders = borderLengths(newer);
  let matched = 0;
  for (const line of older.slice(-newer.length || older.length)) {
    if (matched === newer.length) {
      matched = borders[matched - 1] ?? 0;
    }
    while (matched > 0 && newer[matched] !== line) {
      matched = borders[matched - 1] ?? 0;
    }
    if (newer[matched] === line) {
      matched += 1;
    }
  }
  return matched;
}

function borderLengths(lines: readonly string[]): number[] {
  const borders: number[] = lines.length > 0 ? [0] : [];
  for (let end = 1, matched = 0; end < lines.length; end += 1) {
    while (matched > 0 && lines[end] !== lines[matched]) {
      matched = borders[matched - 1] ?? 0;
    }
    matched += lines[end] === lines[matched] ? 1 : 0;
    borders.push(matched);
  }
  return borders;
}

export function mergeRing(
  scrollback: Scrollback,
  ring: readonly string[],
  limit = scrollbackLimit,
): Scrollback {
  // The daemon's ring grows until it is full and shrinks only when a start empties it.
  const older = ring.length < scrollback.ring.length ? [] : scrollback.ring;
  const overlap = overlapLength(older, ring);
  if (overlap === ring.length && overlap === scrollback.ring.length) {
    return scrollback;
  }
  const fresh: OutputEntry[] = ring.slice(overlap).map((text) => ({ kind: "line", text }));
  const mark = markBefore(scrollback, older, overlap);
  if (fresh.length > 0 && mark !== undefined) {
    fresh.unshift(mark);
  }
  return { ...appended(scrollback, fresh, limit), ring };
}

/**
 * To be called when a start of a program was seen: it has emptied the daemon's ring, and the next
 * reading may look like the last one all the same.
 */
export function restarted(scrollback: Scrollback): Scrollback {
  return { ...scrollback, ring: [] };
}

function markBefore(
  scrollback: Scrollback,
  older: readonly string[],
  overlap: number,
): OutputEntry | undefined {
  if (overlap > 0 || scrollback.entries.length === 0) {
    return undefined;
  }
  return { kind: older.length > 0 ? "gap" : "start" };
}

function appended(
  scrollback: Scrollback,
  fresh: readonly OutputEntry[],
  limit: number,
): Pick<Scrollback, "entries" | "dropped"> {
  const all = [...scrollback.entries, ...fresh];
  const surplus = Math.max(0, all.length - limit);
  return { entries: all.slice(surplus), dropped: scrollback.dropped + surplus };
}
