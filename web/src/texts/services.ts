import type { ChangeResult, ServiceAction } from "../services/changeService";

export const title = "Services";
export const none = "The robot lists no services.";
export const noMatch = "No service matches the filter.";
export const filter = "Filter services";
export const needsOperator = "Log in as operator to start and stop services.";
export const name = "Service";
export const state = "State";
export const boot = "Start at boot";
export const actions = "Actions";
export const template = "template";
export const unknown = "unknown";
export const notFound = "not installed";
export const locked = "switched off";
export const lockedTitle = "It can't be started until “Start at boot” is switched on.";
export const start = "Start";
export const stop = "Stop";
export const startAll = "Start all";
export const stopAll = "Stop all";
export const status = "Status";
export const hideStatus = "Hide status";
export const refresh = "Refresh";
export const of = (action: string, name: string) => `${action} ${name}`;
export const bootOf = (name: string) => `${boot}: ${name}`;
export const bootNeedsAdmin = "Only an admin can change what starts at boot.";
export const statusOf = (name: string) => `Status of ${name}`;
export const noStatus = "The robot told nothing about this service.";
export const statusUnreachable = "The robot didn't answer.";
export const statusImpossible = "A browser can't ask for a service of this name.";
export const loading = "Asking the robot…";

export const stopTitle = (name: string) => `Stop ${name}?`;
export const ownBody =
  "This is the daemon that serves this page. When it stops, this page loses the robot, and nobody can start it again from a browser.";
export const ownAgainTitle = "Really stop the robot's own daemon?";
export const ownAgainBody = "Only somebody at the robot's controller can start it again.";
export const ownAction = "Stop it";
export const offTitle = (name: string) => `Switch ${name} off?`;
export const offBody =
  "It won't start at boot, and nobody can start it by hand, until it is switched on again. If it runs now, it runs on until it is stopped.";
export const offAction = "Switch off";

const verbs: Readonly<Record<ServiceAction, string>> = {
  start: "is running",
  stop: "has stopped",
  activate: "starts at boot",
  deactivate: "is switched off",
};

export const changeTexts: Readonly<
  Record<ChangeResult, (action: ServiceAction, name: string) => string>
> = {
  done: (action, name) => `${name} ${verbs[action]}.`,
  failed: (_, name) => `${name} failed to start. Its status tells more.`,
  changing: (action, name) => `${name} is still ${action === "stop" ? "stopping" : "starting"}.`,
  refused: (_, name) => `The robot refused it, and ${name} is unchanged.`,
  unreachable: (_, name) => `${name}: the robot didn't answer, no change seen.`,
  notSeen: (_, name) => `${name}: no change seen in 10 s. Its status may tell why.`,
};
