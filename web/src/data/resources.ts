import {
  decodeAnalogInputs,
  decodeBumper,
  decodeCharger,
  decodeDigitalInputs,
  decodeDistances,
  decodeOdometry,
  decodePower,
  decodeRecord,
  decodeScan,
} from "./decoders";
import { Resource } from "./Resource";

export type { Charger, Odometry, Power, Scan } from "./decoders";

const movingMs = 200;
const inputsMs = 500;
const powerMs = 2000;
const recordMs = 5000;

export const odometry = new Resource("/data/odometry", {
  decode: decodeOdometry,
  periodMs: movingMs,
  sequenceOf: (reading) => reading.seq,
});

export const scan = new Resource("/data/scan0", {
  decode: decodeScan,
  periodMs: movingMs,
  sequenceOf: (reading) => reading.seq,
});

export const bumper = new Resource("/data/bumper", { decode: decodeBumper, periodMs: movingMs });

export const distances = new Resource("/data/distancesensorarray", {
  decode: decodeDistances,
  periodMs: movingMs,
});

export const analogInputs = new Resource("/data/analoginputarray", {
  decode: decodeAnalogInputs,
  periodMs: inputsMs,
});

export const digitalInputs = new Resource("/data/digitalinputarray", {
  decode: decodeDigitalInputs,
  periodMs: inputsMs,
});

export const power = new Resource("/data/powermanagement", {
  decode: decodePower,
  periodMs: powerMs,
});

export const charger0 = new Resource("/data/charger0", {
  decode: decodeCharger,
  periodMs: powerMs,
});
export const charger1 = new Resource("/data/charger1", {
  decode: decodeCharger,
  periodMs: powerMs,
});

export const festoolCharger = new Resource("/data/festoolcharger", {
  decode: decodeRecord,
  periodMs: recordMs,
  acceptText: true,
});

export const controllerInfo = new Resource("/data/controllerinfo", {
  decode: decodeRecord,
  periodMs: recordMs,
  timeoutMs: 5000,
  acceptText: true,
});
