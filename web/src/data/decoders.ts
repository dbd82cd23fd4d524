import {
  arrayOf,
  asArray,
  asBoolean,
  asNumber,
  asNumberOrNaN,
  asString,
  field,
  numberOrMissing,
  objectOf,
} from "./decode";

export interface Odometry {
  x: number;
  y: number;
  phi: number;
  vx: number;
  vy: number;
  omega: number;
  seq: number;
}

export interface Scan {
  seq: number;
  angleMin: number;
  angleIncrement: number;
  rangeMin: number;
  rangeMax: number;
  /** null where nothing came back. */
  ranges: (number | null)[];
}

export interface Power {
  voltage: number;
  extPower: boolean;
  numChargers: number;
  batteryType: string;
  batteryLow: boolean;
  shutdownCounter: number;
}

export interface Charger {
  chargerNumber: number;
  batteryVoltage: number;
  chargingCurrent: number;
  temperature1: number;
  temperature2: number;
  stateNumber: number;
  state: string;
  version: string;
}

export function decodeOdometry(json: unknown): Odometry | undefined {
  return objectOf<Odometry>(json, {
    x: [0, asNumber],
    y: [1, asNumber],
    phi: [2, asNumber],
    vx: [3, asNumber],
    vy: [4, asNumber],
    omega: [5, asNumber],
    seq: [6, asNumber],
  });
}

export function decodeScan(json: unknown): Scan | undefined {
  const scan = objectOf<Omit<Scan, "ranges">>(json, {
    seq: ["seq", asNumber],
    angleMin: ["angle_min", asNumber],
    angleIncrement: ["angle_increment", asNumber],
    rangeMin: ["range_min", asNumber],
    rangeMax: ["range_max", asNumber],
  });
  const ranges = arrayOf(field(json, "ranges"), (entry) => numberOrMissing(entry, null));
  return scan === undefined || ranges === undefined ? undefined : { ...scan, ranges };
}

/** Infinity where a sensor sees nothing. */
export function decodeDistances(json: unknown): number[] | undefined {
  return arrayOf(json, (entry) => numberOrMissing(entry, Number.POSITIVE_INFINITY));
}

/** NaN where an input has no value: the others must show nevertheless. */
export function decodeAnalogInputs(json: unknown): number[] | undefined {
  return arrayOf(json, asNumberOrNaN);
}

export function decodeDigitalInputs(json: unknown): boolean[] | undefined {
  return arrayOf(json, asBoolean);
}

export function decodeBumper(json: unknown): boolean | undefined {
  return asBoolean(field(json, "value"));
}

export function decodePower(json: unknown): Power | undefined {
  return objectOf<Power>(json, {
    voltage: ["voltage", asNumberOrNaN],
    extPower: ["ext_power", asBoolean],
    numChargers: ["num_chargers", asNumber],
    batteryType: ["batteryType", asString],
    batteryLow: ["batteryLow", asBoolean],
    shutdownCounter: ["batteryLowShutdownCounter", asNumber],
  });
}

export function decodeCharger(json: unknown): Charger | undefined {
  return objectOf<Charger>(json, {
    chargerNumber: ["chargerNumber", asNumber],
    batteryVoltage: ["batteryVoltage", asNumberOrNaN],
    chargingCurrent: ["chargingCurrent", asNumberOrNaN],
    temperature1: ["bat1temp", asNumberOrNaN],
    temperature2: ["bat2temp", asNumberOrNaN],
    stateNumber: ["state_number", asNumber],
    state: ["state", asString],
    version: ["version", asString],
  });
}

/** Flat rows of a record whose shape is the robot's own; text stands for itself. */
export function decodeRecord(json: unknown): readonly (readonly [string, string])[] | undefined {
  return json === undefined || json === null ? undefined : flattened(json, "", 0);
}

const deepest = 4;

function flattened(json: unknown, path: string, depth: number): [string, string][] {
  const isTree = typeof json === "object" && json !== null;
  if (!isTree || depth === deepest) {
    return [[path, typeof json === "string" ? json : JSON.stringify(json)]];
  }
  const entries: [string, unknown][] =
    asArray(json)?.map((value, index) => [String(index), value]) ?? Object.entries(json);
  return entries.flatMap(([key, value]) =>
    flattened(value, path === "" ? key : `${path} ${key}`, depth + 1),
  );
}
