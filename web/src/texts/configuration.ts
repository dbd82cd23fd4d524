import type { ValueProblem } from "../configuration/changes";

const problems: Readonly<Record<ValueProblem, string>> = {
  control: "Line breaks and control characters can't be written.",
  blank: "A blank at the end would be lost.",
};

export const configurationTexts = {
  loading: "Asking the robot for its configuration…",
  failed: "The robot did not give its configuration.",
  again: "Try again",
  none: "The robot has no settings for the browser.",
  noMatch: "No setting matches.",
  search: "Search settings",
  changedOnly: "Changed only",
  reload: "Read again",
  problemOf: (problem: ValueProblem) => problems[problem],

  general: "General",
  present: (value: string) => `${value} (not among the choices)`,
  empty: "(empty)",
  noChoices: "The robot found nothing else to choose.",
  was: (value: string) => `In the file: ${value}`,
  changed: "changed",
  reset: "Reset",
  resetOf: (name: string) => `Reset ${name}`,
  showOf: (name: string) => `Show ${name}`,
  hidden: "••••••",

  unsaved: (count: number) => (count === 1 ? "1 unsaved change" : `${count} unsaved changes`),
  invalid: "Some values can't be saved yet.",
  save: "Review and save",
  discard: "Discard",

  saveTitle: "Save these changes?",
  saveBody: "They go into the robot's files at once.",
  saveAction: "Save",
  setting: "Setting",
  from: "In the file",
  to: "New",
  openDoor: (role: string) =>
    `An empty password lets everybody who reaches this robot act as ${role}.`,
  nothingLeft: "The robot's files hold all of this already.",

  leaveTitle: "Leave without saving?",
  leaveBody: (count: number) =>
    count === 1 ? "One change is not saved." : `${count} changes are not saved.`,
  leaveAction: "Discard and leave",

  refused: "Nothing was saved: the robot refused it. Are you still logged in as admin?",
  unreachable: "The robot did not answer, and the files don't show the changes.",
  notVerified: "The robot took the changes, but the files could not be read again to check them.",
  saved: (count: number) =>
    count === 1 ? "One setting is in the file now." : `${count} settings are in the files now.`,
  report: "Result of saving",
  notTaken: "These settings did not take:",
  notTakenItem: (name: string, wanted: string, found: string) =>
    `${name}: wanted ${wanted}, the file holds ${found}.`,
  gone: (name: string, file: string) =>
    `${name}: the key or its file is gone. The old text may stand in ${file}.bak.`,
  notTakenWhy: "The robot's log says why.",
  restart: "Restart these to apply:",
  toServices: "Open services",
  close: "Close",
} as const;
