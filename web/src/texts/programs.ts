import type { FileResult, RenameProblem } from "../programs/changeFile";
import type { RunResult } from "../programs/runProgram";
import type { UploadItem, UploadProblem } from "../programs/uploadItem";

export const programsTexts = {
  list: "Programs on the robot",
  name: "Name",
  state: "State",
  actions: "Actions",
  running: "running",
  stopped: "stopped",
  downloadOnly: "download only",
  downloadOnlyTitle: "A name without a dot can't be started, renamed or removed.",
  run: "Run",
  stop: "Stop",
  rename: "Rename",
  remove: "Remove",
  download: "Download",
  save: "Save",
  cancel: "Cancel",
  of: (action: string, file: string) => `${action} ${file}`,
  none: "No programs yet. Upload one.",
  needsOperator: "Log in as operator to upload, run and stop programs.",
  logIn: "Log in",
  whileRunning: "Stop the program first.",
  newName: (file: string) => `New name of ${file}`,
  replaceTitle: (file: string) => `Run ${file}?`,
  replaceBody: (other: string) => `${other} is running. It will be stopped and replaced.`,
  replaceAction: "Stop it and run",
  removeTitle: (file: string) => `Remove ${file}?`,
  removeBody: "The file is deleted on the robot. This can't be undone.",

  upload: "Upload",
  drop: "Drop program files here, or",
  pick: "Choose files",
  dropHint: "Names need a dot, like square.lv. Files up to 24 MB.",
  uploads: "Uploads",
  clear: "Clear list",
  progress: (name: string) => `Upload of ${name}`,
  overwriteTitle: (name: string) => `${name} is on the robot already`,
  overwriteForAll: (remaining: number) => `Do the same for ${remaining} more`,
  overwrite: { replace: "Replace", rename: "Keep both", skip: "Skip" },

  output: "Output",
  noOutput: "What a program prints appears here.",
  noMatch: "No line matches the filter.",
  gap: "some lines were missed here",
  restart: "program started",
  filter: "Filter",
  follow: "Follow",
  pause: "Pause",
  resume: "Resume",
  paused: (count: number) => `paused, new lines: ${count}`,
  lines: (count: number) => `Lines: ${count}`,
  saveOutput: "Save",

  variables: "Variables",
  value: "Value",
  noVariables: "A program's variables appear here.",
  chart: "Chart",
  chartOf: (name: string) => `Chart of ${name}`,
};

export const uploadStates: Readonly<Record<UploadItem["state"], string>> = {
  waiting: "waiting",
  sending: "sending",
  done: "stored",
  skipped: "skipped",
  cancelled: "cancelled",
  failed: "failed",
};

export const lateCancel = "Cancelled late: the robot may have stored it.";

export const nameProblems: Readonly<Record<RenameProblem, string>> = {
  empty: "Give it a name.",
  slash: "A name can't have / or \\.",
  control: "The name has characters that can't be shown.",
  noDot: "The name needs a dot and a suffix, like square.lv.",
  dotAtEdge: "A name can't begin or end with a dot.",
  blankAtEdge: "A name can't begin or end with a blank.",
  long: "The name is too long.",
  dot: "The name can't have a dot. The suffix stays as it is.",
  taken: "There is a program of that name.",
};

const uploadOnlyProblems: Readonly<Record<Exclude<UploadProblem, RenameProblem>, string>> = {
  tooLarge: "The file is too large for one upload.",
  unreadable: "The browser can't read this file.",
  unreachable: "The robot didn't answer.",
  refused: "The robot refused it. Uploads need the role operator.",
  failed: "The robot could not store it.",
  notListed: "The robot says it is stored, but doesn't list it.",
};

export const uploadProblems: Readonly<Record<UploadProblem, string>> = {
  ...nameProblems,
  ...uploadOnlyProblems,
};

export type ProgramOrder = "start" | "stop" | "rename" | "remove";

const notSeen: Readonly<Record<ProgramOrder, string>> = {
  start: "was not seen running. It may have ended at once, without output.",
  stop: "is still listed as running. If it never started, the interpreter is missing: check Lumview/path under Configuration.",
  rename: "is still listed under its old name.",
  remove: "is still listed.",
};

type Result = Exclude<RunResult | FileResult, "done" | "declined">;

export const resultTexts: Readonly<Record<Result, (order: ProgramOrder) => string>> = {
  ended: () => "has ended already. Its output tells more.",
  already: (order) => (order === "start" ? "was running already." : "had ended already."),
  running: () => "is running. Stop it first.",
  taken: () => "can't have the name of another program.",
  gone: () => "isn't on the robot any more.",
  refused: () => "is unchanged: the robot refused it. This needs the role operator.",
  unreachable: () => "may have changed or not: the robot didn't answer.",
  notSeen: (order) => notSeen[order],
};
