import type { WriteOutcome } from "../data/requests";
import { fileNameOf, findProgram, isDownloadOnly, type Program } from "./programList";
import { type NameProblem, problemOfFileName } from "./uploadNames";

export interface FileDeps {
  readPrograms(): Promise<readonly Program[] | undefined>;
  send(program: Program): Promise<WriteOutcome>;
}

export type FileResult =
  | "done"
  | "running"
  | "taken"
  | "gone"
  | "refused"
  | "unreachable"
  | "notSeen";

export type RenameProblem = NameProblem | "dot" | "taken";

/** The new name is the part before the first dot, so it can't have one itself. */
export function problemOfRename(
  program: Program,
  newName: string,
  programs: readonly Program[],
): RenameProblem | undefined {
  const name = newName.trim();
  if (name === "" || name.includes(".")) {
    return name === "" ? "empty" : "dot";
  }
  const isTaken = name !== program.name && holds(programs, { ...program, name });
  return isTaken ? "taken" : problemOfFileName(fileNameOf({ ...program, name }));
}

function holds(programs: readonly Program[], program: Program): boolean {
  return programs.some((other) => fileNameOf(other) === fileNameOf(program));
}

/** The daemon doesn't say whether it could rename, and would replace a program of that name. */
export function renameProgram(
  program: Program,
  newName: string,
  deps: FileDeps,
): Promise<FileResult> {
  return changeFile(program, { ...program, name: newName.trim() }, deps);
}

export function removeProgram(program: Program, deps: FileDeps): Promise<FileResult> {
  return changeFile(program, undefined, deps);
}

async function changeFile(
  program: Program,
  renamed: Program | undefined,
  { readPrograms, send }: FileDeps,
): Promise<FileResult> {
  const before = await readPrograms();
  if (before === undefined) {
    return "unreachable";
  }
  const present = findProgram(before, program);
  if (present === undefined || isDownloadOnly(present)) {
    return "gone";
  }
  if (present.running) {
    return "running";
  }
  if (renamed && holds(before, renamed)) {
    return "taken";
  }
  const { state } = await send(renamed ?? program);
  if (state !== "accepted") {
    return state;
  }
  const after = await readPrograms();
  const isDone = after && !holds(after, program) && (!renamed || holds(after, renamed));
  return isDone ? "done" : "notSeen";
}
