import type { WriteOutcome } from "../data/requests";
import { allServices, instancesOf, isTemplate, type Service, type ServiceGroup } from "./tree";

export type ServiceAction = "start" | "stop" | "activate" | "deactivate";

export interface ChangeDeps {
  /** A fresh reading, undefined where there is none. */
  readServices(): Promise<readonly ServiceGroup[] | undefined>;
  send(action: ServiceAction, name: string): Promise<WriteOutcome>;
  sleep(milliseconds: number): Promise<void>;
}

export type ChangeResult = "done" | "failed" | "changing" | "refused" | "unreachable" | "notSeen";

const pollMs = 1000;
const patienceMs = 10_000;

const goals: Readonly<Record<ServiceAction, (service: Service) => boolean>> = {
  start: (service) => service.active === "active",
  stop: (service) => service.active === "inactive" || service.active === "failed",
  activate: (service) => service.activated === true,
  deactivate: (service) => service.activated === false,
};

/** The units that an action is about: starting a template means all of its instances. */
function concerned(
  groups: readonly ServiceGroup[],
  action: ServiceAction,
  name: string,
): readonly Service[] {
  return isTemplate(name) && (action === "start" || action === "stop")
    ? instancesOf(groups, name)
    : allServices(groups).filter((service) => service.name === name);
}

/**
 * An accepted order says only that a script has ended, so the state is watched until it is as
 * wanted. A refusal may come too late, after the order was passed on, and is watched as well.
 */
export async function changeService(
  action: ServiceAction,
  name: string,
  deps: ChangeDeps,
): Promise<ChangeResult> {
  const outcome = await deps.send(action, name);
  let last: readonly Service[] = [];
  for (let waited = 0; waited < patienceMs; waited += pollMs) {
    await deps.sleep(pollMs);
    const groups = await deps.readServices();
    last = groups === undefined ? last : concerned(groups, action, name);
    if (last.length > 0 && last.every(goals[action])) {
      return "done";
    }
  }
  if (outcome.state !== "accepted") {
    return outcome.state;
  }
  if (action === "start" && last.some((service) => service.active === "failed")) {
    return "failed";
  }
  return last.some((service) => service.active.endsWith("ing")) ? "changing" : "notSeen";
}
