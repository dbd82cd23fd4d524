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
  none: "There are no programs on the robot yet. Upload one.",
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
  overwriteForAll: (remaining: number) =>
    remaining === 1 ? "Do the same for the other file" : `Do the same for ${remaining} other files`,
  overwrite: { replace: "Replace", rename: "Keep both", skip: "Skip" },

  output: "Output",
  noOutput: "No output yet. Lines that a program prints appear here.",
  noMatch: "No line matches the filter.",
  gap: "some lines were missed here",
  restart: "program started",
  filter: "Filter",
  follow: "Follow",
  pause: "Pause",
  resume: "Resume",
  paused: (count: number) => (count === 1 ? "paused, 1 new line" : `paused, ${count} new lines`),
  lines: (count: number) => (count === 1 ? "1 line" : `${count} lines`),
  saveOutput: "Save",

  variables: "Variables",
  value: "Value",
  noVariables: "A program's variables appear here while it runs.",
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
  noDot: "The name needs a dot and a suffix, like square.lv, or it could never be started.",
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
  notListed: "The robot says that it stored it, but its list doesn't show it.",
};

export const uploadProblems: Readonly<Record<UploadProblem, string>> = {
  ...nameProblems,
  ...uploadOnlyProblems,
};

const noAnswer = "The robot didn't answer. Look at the list for what happened.";
const refused = "The robot refused it. This needs the role operator.";

export const startTexts: Readonly<Partial<Record<RunResult, (file: string) => string>>> = {
  ended: (file) => `${file} has ended already. Its output tells more.`,
  already: (file) => `${file} was running already.`,
  gone: (file) => `${file} isn't on the robot any more.`,
  refused: () => refused,
  unreachable: () => noAnswer,
  notSeen: (file) => `${file} was not seen running. It may have ended at once, without output.`,
};

export const stopTexts: Readonly<Partial<Record<RunResult, (file: string) => string>>> = {
  already: (file) => `${file} had ended already.`,
  gone: (file) => `${file} isn't on the robot any more.`,
  refused: () => refused,
  unreachable: () => noAnswer,
  notSeen: (file) =>
    `${file} is still listed as running. If it never started, the robot's interpreter is missing: check Lumview/path under Configuration.`,
};

export const fileTexts: Readonly<Record<Exclude<FileResult, "done">, (file: string) => string>> = {
  running: (file) => `${file} is running. Stop it first.`,
  taken: () => nameProblems.taken,
  gone: (file) => `${file} isn't on the robot any more.`,
  refused: () => "The robot refused it, or could not change the file.",
  unreachable: () => noAnswer,
  notSeen: (file) => `The robot accepted it, but the list still shows ${file} unchanged.`,
};
