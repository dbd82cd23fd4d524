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

function isWithin(value: unknown, least: number, most: number): boolean {
  return typeof value === "number" && value >= least && value <= most;
}

/** Undefined for whatever is no geometry of a robot. */
export function asSensorGeometry(value: unknown): SensorGeometry | undefined {
  if (typeof value !== "object" || value === null) {
    return undefined;
  }
  const it = value as Partial<Record<keyof SensorGeometry, unknown>>;
  const fits =
    isWithin(it.startAngleDeg, -360, 360) &&
    (it.direction === "left" || it.direction === "right") &&
    isWithin(it.metresPerUnit, 0.0001, 10) &&
    isWithin(it.sensorRange, 0.01, 20) &&
    isWithin(it.robotRadius, 0.05, 2) &&
    isWithin(it.scannerAngleDeg, -360, 360);
  return fits ? (value as SensorGeometry) : undefined;
}
