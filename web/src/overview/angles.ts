import type { AngleUnit } from "../settings/general";
import * as texts from "../texts/overview";

/** An angle within half a turn either way, as people read it. */
export function headingOf(phi: number): number {
  const turn = 2 * Math.PI;
  const rest = ((phi % turn) + turn) % turn;
  return rest > Math.PI ? rest - turn : rest;
}

export function formatAngle(radians: number, unit: AngleUnit): string {
  return unit === "degrees" ? texts.degrees((radians * 180) / Math.PI) : texts.radians(radians);
}
