import { isTemplate, type Service } from "./tree";

export type ServiceTone = "ok" | "warn" | "bad" | "neutral";

const tones = new Map<string, ServiceTone>([
  ["active", "ok"],
  ["failed", "bad"],
  ["inactive", "neutral"],
]);

export function toneOf(service: Service): ServiceTone {
  return service.load === "not-found" || service.load === "bad-setting"
    ? "bad"
    : (tones.get(service.active) ?? "warn");
}

/** Running or about to: what there is to do with it is to stop it. */
export function isUp(service: Service): boolean {
  return ["active", "activating", "reloading"].includes(service.active);
}

/** A masked unit can't be started by anybody. */
export function isLocked(service: Service): boolean {
  return service.activated === false || service.load === "masked";
}

/** Services that should be looked at; a template runs nothing itself, and stopped on purpose is fine. */
export function isNotActive(service: Service): boolean {
  return !isTemplate(service.name) && !isLocked(service) && service.active !== "active";
}

/** The daemon's own unit: who stops it has no page left to start it again. */
export function isOwnUnit(service: Service): boolean {
  return service.name === "tessarad";
}
