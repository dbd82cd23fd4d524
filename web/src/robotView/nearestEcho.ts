import type { Echo } from "./geometry";
import { degreesWithinTurn } from "./geometry";

export function nearestEcho(echoes: readonly Echo[]): Echo | undefined {
  let nearest: Echo | undefined;
  for (const echo of echoes) {
    if (nearest === undefined || echo.distance < nearest.distance) {
      nearest = echo;
    }
  }
  return nearest;
}

export type Bearing =
  | { readonly side: "ahead" | "behind" }
  | { readonly side: "left" | "right"; readonly degrees: number };

// Whole degrees, as nobody can aim finer than that from a spoken text.
export function bearingOf(angle: number): Bearing {
  const degrees = Math.round(degreesWithinTurn(angle));
  if (degrees === 0) {
    return { side: "ahead" };
  }
  if (Math.abs(degrees) === 180) {
    return { side: "behind" };
  }
  return { side: degrees > 0 ? "left" : "right", degrees: Math.abs(degrees) };
}
