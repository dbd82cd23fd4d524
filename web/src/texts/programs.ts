import type { FileResult, RenameProblem } from "../programs/changeFile";
import type { RunResult } from "../programs/runProgram";
import type { UploadItem, UploadProblem } from "../programs/uploadItem";

export const list = "Programs on the robot";
export const name = "Name";
export const state = "State";
export const actions = "Actions";
export const running = "running";
export const stopped = "stopped";
export const downloadOnly = "download only";
export const downloadOnlyTitle = "A name without a dot can't be started, renamed or removed.";
export const run = "Run";
export const stop = "Stop";
export const rename = "Rename";
export const remove = "Remove";
export const download = "Download";
export const save = "Save";
export const cancel = "Cancel";
export const of = (action: string, file: string) => `${action} ${file}`;
export const none = "No programs yet. Upload one.";
export const needsOperator = "Log in as operator to upload, run and stop programs.";
export const logIn = "Log in";
export const whileRunning = "Stop the program first.";
export const newName = (file: string) => `New name of ${file}`;
export const replaceTitle = (file: string) => `Run ${file}?`;
export const replaceBody = (other: string) => `${other} is running. It will be replaced.`;
export const replaceAction = "Stop it and run";
export const removeTitle = (file: string) => `Remove ${file}?`;
export const removeBody = "The file is deleted on the robot. This can't be undone.";

export const upload = "Upload";
export const drop = "Drop program files here, or";
export const pick = "Choose files";
export const dropHint = "Names need a dot, like square.lv. Files up to 32 MiB.";
export const uploads = "Uploads";
export const clear = "Clear list";
export const progress = (name: string) => `Upload of ${name}`;
export const overwriteTitle = (name: string) => `${name} is on the robot already`;
export const overwriteForAll = (remaining: number) => `Do the same for ${remaining} more`;
export const overwrite = { replace: "Replace", rename: "Rename the new one", skip: "Skip" };

export const output = "Output";
export const noOutput = "What a program prints appears here.";
export const noMatch = "No line matches the filter.";
export const gap = "gap: some lines were missed here";
export const restart = "program started";
export const filter = "Filter";
export const follow = "Follow";
export const pause = "Pause";
export const resume = "Resume";
export const paused = (count: number) => `paused, new lines: ${count}`;
export const lines = (count: number) => `Lines: ${count}`;
export const saveOutput = "Save output";

export const variables = "Variables";
export const value = "Value";
export const noVariables = "A program's variables appear here.";
export const chart = "Chart";
export const chartOf = (name: string) => `Chart of ${name}`;

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
  tooLarge: "The file is larger than 32 MiB.",
  unreadable: "The browser can't read this file.",
  unreachable: "The robot didn't answer.",
  refused: "The robot refused it. Is your login still valid?",
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
  refused: () => "is unchanged: the robot refused it. Is your login still valid?",
  unreachable: () => "may have changed or not: the robot didn't answer.",
  notSeen: (order) => notSeen[order],
};
