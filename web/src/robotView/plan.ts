import type { Point } from "./geometry";

// Maps metres of a plan to pixels of a canvas.
export interface Plan {
  readonly pixelsPerMetre: number;
  toPixels(point: Point): { readonly left: number; readonly top: number };
}

// The robot in the middle, ahead is up, so that left on the canvas is left of the robot.
export function robotPlan(width: number, height: number, reach: number): Plan {
  const pixelsPerMetre = Math.min(width, height) / 2 / reach;
  return {
    pixelsPerMetre,
    toPixels: ({ x, y }) => ({
      left: width / 2 - y * pixelsPerMetre,
      top: height / 2 - x * pixelsPerMetre,
    }),
  };
}

export interface Bounds {
  readonly xMin: number;
  readonly xMax: number;
  readonly yMin: number;
  readonly yMax: number;
}

export function boundsOf(points: readonly Point[]): Bounds | undefined {
  const first = points[0];
  if (first === undefined) {
    return undefined;
  }
  let { x: xMin, x: xMax, y: yMin, y: yMax } = first;
  for (const { x, y } of points) {
    xMin = Math.min(xMin, x);
    xMax = Math.max(xMax, x);
    yMin = Math.min(yMin, y);
    yMax = Math.max(yMax, y);
  }
  return { xMin, xMax, yMin, yMax };
}

// The floor as a map: x to the right, y up. Small movements aren't blown up to more than one metre.
export function floorPlan(width: number, height: number, bounds: Bounds): Plan {
  const margin = 24;
  const across = Math.max(bounds.xMax - bounds.xMin, 1);
  const along = Math.max(bounds.yMax - bounds.yMin, 1);
  const pixelsPerMetre = Math.max(
    1,
    Math.min((width - 2 * margin) / across, (height - 2 * margin) / along),
  );
  const middleX = (bounds.xMin + bounds.xMax) / 2;
  const middleY = (bounds.yMin + bounds.yMax) / 2;
  return {
    pixelsPerMetre,
    toPixels: ({ x, y }) => ({
      left: width / 2 + (x - middleX) * pixelsPerMetre,
      top: height / 2 - (y - middleY) * pixelsPerMetre,
    }),
  };
}

const lengths = [10, 5, 2, 1, 0.5, 0.2, 0.1] as const;
const leastRingPixels = 40;

// A length for the scale bar that is at most so many pixels long.
export function scaleLength(pixelsPerMetre: number, mostPixels: number): number {
  return lengths.find((length) => length * pixelsPerMetre <= mostPixels) ?? 0.05;
}

/** Between the rings around the robot, so that their labels have room. */
export function ringSpacing(pixelsPerMetre: number): number {
  const fits = (length: number) => length * pixelsPerMetre >= leastRingPixels;
  return [...lengths].reverse().find(fits) ?? lengths[0];
}
