import type { ReadonlySignal } from "@preact/signals";
import { now } from "../data/clock";
import type { Freshness } from "../data/freshness";
import * as kit from "../texts/kit";
import { formatAge } from "./format";

export interface Aging {
  readonly arrivedAt: ReadonlySignal<number | undefined>;
  readonly freshness: ReadonlySignal<Freshness>;
}

/** Says nothing about a value of now, and how old any other one is. */
export function Age({ resource }: { resource: Aging }) {
  const freshness = resource.freshness.value;
  const arrivedAt = resource.arrivedAt.value;
  if (freshness === "fresh") {
    return null;
  }
  return (
    <span class="age">
      {arrivedAt === undefined ? kit.noData : kit.old(formatAge(now.value - arrivedAt))}
    </span>
  );
}
