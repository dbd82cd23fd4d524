import { Resource } from "../data/Resource";
import { decodeServices } from "./tree";

export const servicesPath = "/data/services";

/** The daemon runs four short commands for each answer. */
export const servicesTimeoutMs = 5000;

export const services = new Resource(servicesPath, {
  decode: decodeServices,
  periodMs: 5000,
  timeoutMs: servicesTimeoutMs,
});
