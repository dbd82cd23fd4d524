export type Freshness = "none" | "fresh" | "stale";

const missedPeriods = 3;
// A reading's number may rise more slowly than it is asked for.
const leastSilenceMs = 2000;

/** How old a value may be before people must see that it is not the present one. */
export function staleAfterMs(periodMs: number, numbered: boolean): number {
  return Math.max(periodMs * missedPeriods, numbered ? leastSilenceMs : 0);
}

export function freshnessOf(
  now: number,
  arrivedAt: number | undefined,
  staleAfter: number,
): Freshness {
  if (arrivedAt === undefined) {
    return "none";
  }
  return now - arrivedAt > staleAfter ? "stale" : "fresh";
}
