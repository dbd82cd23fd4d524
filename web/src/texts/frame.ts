import type { Role } from "../data/roles";

const roleNames: Readonly<Record<Role, string>> = {
  guest: "Guest",
  operator: "Operator",
  admin: "Admin",
};

export const frame = {
  roleNames,
  skip: "Skip to the content",
  pages: "Pages",
  status: "Robot",
  more: "More",
  pageTitle: (page: string, host: string) => `${page} – ${host}`,
  unknownPage: "There is no such page.",
  overviewLink: "Go to the overview",

  stop: "Stop drive",
  stopHint: "Software stop – not a safety device, use the robot's emergency stop",
  stopLogin: "Log in to stop",
  stopLoginReason: "To stop the robot, log in as operator or admin.",
  stopStates: {
    idle: "",
    stopping: "stopping…",
    confirmed: "stopped",
    unconfirmed: "not confirmed",
  },
  stopUnconfirmed: "Stop not confirmed – the robot stops by itself within 0.5 s.",
  stopProgram: (name: string) => `Stop program too: ${name}`,

  roleUnknown: "…",
  roleTitle: "Log in or out",
  everyoneIsAdmin: "Everyone is admin",
  everyoneIsAdminHint: "No administrator password is set: whoever opens this page may do anything.",
  linkLost: "No reply",
  linkUnknown: "…",
  linkMs: (milliseconds: number) => `${milliseconds} ms`,
  linkTitle: "Time from a request to its answer",
  linkLabel: (text: string) => `Link: ${text}`,
  batteryLabel: (text: string) => `Battery: ${text}`,
  batteryUnknown: "– V",
  volts: (text: string) => `${text} V`,
  batteryLow: "low",
  batteryOld: "old",
  touching: "Touching",
  clear: "Clear",
  bumperLabel: (text: string) => `Bumper: ${text}`,
  bumperUnknown: "–",

  lostTitle: (time: string) => `No connection to robot since ${time} – retrying`,
  drivingElsewhere: "Another tab is driving. This one waits, so that no command is held up.",
  ended: "Session ended – log in again. What you have typed is kept.",
  logIn: "Log in",
  stayGuest: "Go on without",

  lockedTitle: (page: string, needed: Role) =>
    `${page} needs ${needed === "admin" ? "an admin" : "an operator"}`,
  lockedBody: (needed: Role) => `Log in as ${needed === "admin" ? "admin" : "operator or admin"}.`,
  needs: (needed: Role) => `needs ${needed}`,
  waiting: "Asking the robot who you are…",

  loginTitle: "Log in",
  loginRole: "Role",
  loginPassword: "Password",
  loginWrong: "That is not the password of this role. Nothing has changed.",
  loginUnreachable: "The robot did not answer. Try again.",
  loggedInAs: (name: string) => `You are logged in as ${name.toLowerCase()}.`,
  loginNeedless: "No role needs a password on this robot: everybody is admin.",
  logOut: "Log out",
  loggedOut: "Logged out",
  welcome: (name: string) => `Logged in as ${name.toLowerCase()}`,
  idleLogout: "Logged out after 15 minutes without input.",

  shortcuts: "Keyboard shortcuts",
  framed: "This page is shown inside another one, where a click may not be what it seems.",
  framedLink: "Open it by itself",
};
