import { type Point, pointOf, radians } from "./geometry";
import { nearestEcho } from "./nearestEcho";
import { type Scan, scanEchoes } from "./scanEchoes";
import { type SensorReading, sensorEchoes, sensorReadings } from "./sensorEchoes";
import type { SensorGeometry } from "./sensorGeometry";

export interface Surroundings {
  readonly scanPoints: readonly Point[];
  readonly sensors: readonly SensorReading[];
  /** From the hull, in the direction of `angle`; undefined where nothing is seen. */
  readonly nearest: { readonly angle: number; readonly distance: number } | undefined;
}

/** What the robot sees around itself, of the sensors that have told something. */
export function surroundingsOf(
  scan: Scan | undefined,
  distances: readonly number[] | undefined,
  geometry: SensorGeometry,
): Surroundings {
  const fromScan = scan === undefined ? [] : scanEchoes(scan, radians(geometry.scannerAngleDeg));
  const sensors = sensorReadings(distances ?? [], geometry);
  const nearest = nearestEcho([...fromScan, ...sensorEchoes(sensors, geometry)]);
  return {
    scanPoints: fromScan.map(pointOf),
    sensors,
    nearest: nearest && {
      angle: nearest.angle,
      distance: Math.max(0, nearest.distance - geometry.robotRadius),
    },
  };
}
