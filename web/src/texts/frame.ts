import type { Role } from "../data/roles";

export const roleNames: Readonly<Record<Role, string>> = {
  guest: "Guest",
  operator: "Operator",
  admin: "Admin",
};

export const skip = "Skip to the content";
export const pages = "Pages";
export const status = "Robot";
export const more = "More";
export const pageTitle = (page: string, host: string) => `${page} - ${host}`;
export const unknownPage = "There is no such page.";
export const overviewLink = "Go to the overview";

export const stop = "Stop drive";
export const stopHint = "Software stop - not a safety device, use the robot's emergency stop";
export const stopLogin = "Log in to stop";
export const stopLoginReason = "To stop the robot, log in as operator or admin.";
export const stopStates = {
  idle: "",
  stopping: "stopping…",
  confirmed: "stopped",
  unconfirmed: "not confirmed",
};
export const stopUnconfirmed = "Stop not confirmed - robot stops by itself within 0.5 s.";
export const stopProgram = (name: string) => `Stop program too: ${name}`;

export const roleUnknown = "…";
export const roleTitle = "Log in or out";
export const everyoneIsAdmin = "Everyone is admin";
export const everyoneIsAdminHint =
  "No administrator password is set: whoever opens this page may do anything.";
export const linkLost = "No reply";
export const linkUnknown = "…";
export const linkMs = (milliseconds: number) => `${milliseconds} ms`;
export const linkTitle = "Time from a request to its answer";
export const linkLabel = (text: string) => `Link: ${text}`;
export const batteryLabel = (text: string) => `Battery: ${text}`;
export const batteryUnknown = "– V";
export const volts = (text: string) => `${text} V`;
export const batteryLow = "low";
export const batteryOld = "old";
export const touching = "Touching";
export const clear = "Clear";
export const bumperLabel = (text: string) => `Bumper: ${text}`;
export const bumperUnknown = "–";

export const lostTitle = (time: string) => `No connection to robot since ${time} - retrying`;
export const drivingElsewhere =
  "Another tab is driving. This one waits, so that no command is held up.";
export const ended = "Session ended - log in again. What you have typed is kept.";
export const logIn = "Log in";
export const stayGuest = "Go on without";

export const lockedBody = (needed: Role) =>
  `Log in as ${needed === "admin" ? "admin" : "operator or admin"}.`;
export const needs = (needed: Role) => `needs ${needed} - log in`;
export const lockedTitle = (page: string, needed: Role) => `${page} ${needs(needed)}`;
export const waiting = "Asking the robot who you are…";

export const loginTitle = "Log in";
export const loginRole = "Role";
export const loginPassword = "Password";
export const loginWrong = "Wrong password. Nothing has changed.";
export const loginUnreachable = "The robot did not answer. Try again.";
export const loggedInAs = (name: string) => `Your role now: ${name.toLowerCase()}`;
export const loginNeedless = "No role needs a password on this robot: everybody is admin.";
export const logOut = "Log out";
export const loggedOut = "Logged out";
export const welcome = (name: string) => `Logged in as ${name.toLowerCase()}`;
export const idleLogout = "Logged out after 15 minutes without input.";

export const shortcuts = "Keyboard shortcuts";
export const framed =
  "This page is shown inside another one, where a click may not be what it seems.";
export const framedLink = "Open it by itself";
