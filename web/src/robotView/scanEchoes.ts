import type { Echo } from "./geometry";

export interface Scan {
  readonly angleMin: number;
  readonly angleIncrement: number;
  readonly rangeMin: number;
  readonly rangeMax: number;
  readonly ranges: readonly (number | null)[];
}

// A scanner tells "nothing there" as null, as 0 or as its largest range, none of which is a wall.
export function isReturn(range: number | null | undefined, scan: Scan): range is number {
  return (
    typeof range === "number" &&
    Number.isFinite(range) &&
    range > 0 &&
    range >= scan.rangeMin &&
    (scan.rangeMax <= 0 || range < scan.rangeMax)
  );
}

export function scanEchoes(scan: Scan, mountAngle: number): Echo[] {
  const echoes: Echo[] = [];
  for (let ray = 0; ray < scan.ranges.length; ray += 1) {
    const range = scan.ranges[ray];
    if (isReturn(range, scan)) {
      echoes.push({
        angle: mountAngle + scan.angleMin + ray * scan.angleIncrement,
        distance: range,
      });
    }
  }
  return echoes;
}
