import type { ChangeResult, ServiceAction } from "../services/changeService";

export const servicesTexts = {
  title: "Services",
  none: "The robot lists no services.",
  noMatch: "No service matches the filter.",
  filter: "Filter services",
  needsOperator: "Log in as operator to start and stop services.",
  name: "Service",
  state: "State",
  boot: "Start at boot",
  actions: "Actions",
  template: "template",
  unknown: "unknown",
  notFound: "not installed",
  locked: "switched off",
  lockedTitle: "It can't be started until “Start at boot” is switched on.",
  start: "Start",
  stop: "Stop",
  startAll: "Start all",
  stopAll: "Stop all",
  status: "Status",
  hideStatus: "Hide status",
  refresh: "Refresh",
  of: (action: string, name: string) => `${action} ${name}`,
  bootOf: (name: string) => `Start ${name} at boot`,
  bootNeedsAdmin: "Only an admin can change what starts at boot.",
  statusOf: (name: string) => `Status of ${name}`,
  noStatus: "The robot told nothing about this service.",
  statusUnreachable: "The robot didn't answer.",
  statusImpossible: "A browser can't ask for a service of this name.",
  loading: "Asking the robot…",

  stopTitle: (name: string) => `Stop ${name}?`,
  ownBody:
    "This is the daemon that serves this page. When it stops, this page loses the robot, and nobody can start it again from a browser.",
  ownAgainTitle: "Really stop the robot's own daemon?",
  ownAgainBody: "Only somebody at the robot's controller can start it again.",
  ownAction: "Stop it",
  offTitle: (name: string) => `Switch ${name} off?`,
  offBody:
    "It won't start at boot, and nobody can start it by hand, until it is switched on again. If it runs now, it runs on until it is stopped.",
  offAction: "Switch off",
};

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
  unreachable: (_, name) => `The robot didn't answer. No change of ${name} was seen.`,
  notSeen: (_, name) => `No change of ${name} was seen in 10 s. Its status may tell why.`,
};
