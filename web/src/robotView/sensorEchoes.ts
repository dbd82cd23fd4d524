import type { Echo } from "./geometry";
import { radians } from "./geometry";
import type { SensorGeometry } from "./sensorGeometry";

export const sensorCount = 9;
const sensorSpacing = radians(360 / sensorCount);

export interface SensorReading {
  readonly angle: number;
  // From the hull's edge in metres; where nothing is near, undefined.
  readonly distance: number | undefined;
}

export function sensorAngle(index: number, geometry: SensorGeometry): number {
  const turn = geometry.direction === "left" ? 1 : -1;
  return radians(geometry.startAngleDeg) + turn * index * sensorSpacing;
}

export function sensorReadings(
  distances: readonly number[],
  geometry: SensorGeometry,
): SensorReading[] {
  return distances.slice(0, sensorCount).map((raw, index) => {
    const distance = raw * geometry.metresPerUnit;
    const isNear = Number.isFinite(distance) && distance >= 0 && distance < geometry.sensorRange;
    return {
      angle: sensorAngle(index, geometry),
      distance: isNear ? distance : undefined,
    };
  });
}

export function sensorEchoes(readings: readonly SensorReading[], geometry: SensorGeometry): Echo[] {
  const echoes: Echo[] = [];
  for (const { angle, distance } of readings) {
    if (distance !== undefined) {
      echoes.push({ angle, distance: geometry.robotRadius + distance });
    }
  }
  return echoes;
}
