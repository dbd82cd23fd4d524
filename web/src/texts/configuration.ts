import type { ValueProblem } from "../configuration/changes";

export const problems: Readonly<Record<ValueProblem, string>> = {
  control: "Line breaks and control characters can't be written.",
  blank: "A blank at the end would be lost.",
};

export const none = "The robot has no settings for the browser.";
export const noMatch = "No setting matches.";
export const search = "Search settings";
export const changedOnly = "Changed only";
export const reload = "Read again";

export const general = "General";
export const present = (value: string) => `${value} (not among the choices)`;
export const empty = "(empty)";
export const noChoices = "The robot found nothing else to choose.";
export const was = (value: string) => `In the file: ${value}`;
export const changed = "changed";
export const reset = (name: string) => `Reset ${name}`;

export const review = "Review and save";
export const saveTitle = "Save these changes?";
export const saveAction = "Save";
export const openDoor = (role: string) =>
  `An empty password lets everybody who reaches this robot act as ${role}.`;
export const nothingLeft = "The files hold all of this already.";

export const failures = {
  refused: "The robot did not take the changes. Are you still admin?",
  unreachable: "The robot did not answer, and the files don't show the changes.",
  unverified: "The robot took the changes, but the files could not be read to check them.",
};
export const saved = (count: number) =>
  count === 1 ? "One setting is in the file now." : `${count} settings are in the files now.`;
export const report = "Result of saving";
export const notTaken = "These did not take; the robot's log says why:";
export const notTakenItem = (name: string, wanted: string, found: string) =>
  `${name}: wanted ${wanted}, the file holds ${found}.`;
export const gone = (name: string, file: string) =>
  `${name}: the key or its file is gone. The old text may stand in ${file}.bak.`;
export const restart = "Restart these to apply:";
export const toServices = "Open services";
