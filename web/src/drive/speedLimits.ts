import type { Maxima } from "./velocity";

export const speedScales = [0.1, 0.25, 0.5, 1] as const;
export type SpeedScale = (typeof speedScales)[number];

/** Chosen anew on each visit, so that nobody inherits somebody else's full speed. */
export const firstScale: SpeedScale = 0.25;

export const defaultMaxima: Maxima = { vx: 0.5, vy: 0.5, omega: 1 };

/** Of the maxima, for one step. */
export const stepShare = 0.2;

/** Of everything, while the link is slow. */
export const slowLinkShare = 0.5;

export const maximumBounds = [0.02, 10] as const;
const [leastMaximum, mostMaximum] = maximumBounds;

function isMaximum(value: unknown): value is number {
  return typeof value === "number" && value >= leastMaximum && value <= mostMaximum;
}

export function isMaxima(value: unknown): value is Maxima {
  if (typeof value !== "object" || value === null) {
    return false;
  }
  const { vx, vy, omega } = value as Partial<Record<keyof Maxima, unknown>>;
  return isMaximum(vx) && isMaximum(vy) && isMaximum(omega);
}

/** After the robot has refused a command: its limits must be somewhere below. */
export function halved({ vx, vy, omega }: Maxima): Maxima {
  const half = (value: number) => Math.max(leastMaximum, Math.round(value * 500) / 1000);
  return { vx: half(vx), vy: half(vy), omega: half(omega) };
}
