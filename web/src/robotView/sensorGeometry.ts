// How the sensors sit on this robot. The robot doesn't tell, so that people set it for each browser.
export interface SensorGeometry {
  // Where the first distance sensor looks, in degrees to the left of ahead.
  readonly startAngleDeg: number;
  // To which side the following sensors go.
  readonly direction: "left" | "right";
  // 1 where distances are told in metres, 0.01 in centimetres.
  readonly metresPerUnit: number;
  // From here on, in metres, a distance sensor sees nothing.
  readonly sensorRange: number;
  readonly robotRadius: number;
  // How far the scanner is turned, in degrees to the left.
  readonly scannerAngleDeg: number;
}

export const defaultSensorGeometry: SensorGeometry = {
  startAngleDeg: 0,
  direction: "left",
  metresPerUnit: 1,
  sensorRange: 0.4,
  robotRadius: 0.225,
  scannerAngleDeg: 0,
};

/** What the numbers may be that people choose. */
export const geometryBounds = {
  startAngleDeg: [-360, 360],
  sensorRange: [0.01, 20],
  robotRadius: [0.05, 2],
  scannerAngleDeg: [-360, 360],
} as const;

export type BoundedKey = keyof typeof geometryBounds;
export const boundedKeys = Object.keys(geometryBounds) as BoundedKey[];

/** Undefined for whatever is no geometry of a robot. */
export function asSensorGeometry(value: unknown): SensorGeometry | undefined {
  const it = value as SensorGeometry | undefined | null;
  const fits =
    (it?.direction === "left" || it?.direction === "right") &&
    [1, 0.01, 0.001].includes(it.metresPerUnit) &&
    boundedKeys.every((key) => {
      const [least, most] = geometryBounds[key];
      return typeof it[key] === "number" && it[key] >= least && it[key] <= most;
    });
  return fits ? it : undefined;
}
