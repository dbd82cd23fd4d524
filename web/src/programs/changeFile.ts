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
  if (name === "") {
    return "empty";
  }
  if (name.includes(".")) {
    return "dot";
  }
  const isTaken = name !== program.name && holds(programs, { ...program, name });
  return isTaken ? "taken" : problemOfFileName(fileNameOf({ ...program, name }));
}

function holds(programs: readonly Program[], program: Program): boolean {
  return programs.some((other) => fileNameOf(other) === fileNameOf(program));
}

/** The daemon doesn't say whether it could rename, and would replace a program of that name. */
export async function renameProgram(
  program: Program,
  newName: string,
  deps: FileDeps,
): Promise<FileResult> {
  const renamed = { ...program, name: newName.trim() };
  const before = await deps.readPrograms();
  const obstacle = obstacleTo(program, before);
  if (before === undefined || obstacle !== undefined) {
    return obstacle ?? "unreachable";
  }
  if (holds(before, renamed)) {
    return "taken";
  }
  const outcome = await deps.send(renamed);
  if (outcome.state !== "accepted") {
    return outcome.state;
  }
  const after = await deps.readPrograms();
  return after !== undefined && holds(after, renamed) && !holds(after, program)
    ? "done"
    : "notSeen";
}

export async function removeProgram(program: Program, deps: FileDeps): Promise<FileResult> {
  const obstacle = obstacleTo(program, await deps.readPrograms());
  if (obstacle !== undefined) {
    return obstacle;
  }
  const outcome = await deps.send(program);
  if (outcome.state !== "accepted") {
    return outcome.state;
  }
  const after = await deps.readPrograms();
  return after !== undefined && !holds(after, program) ? "done" : "notSeen";
}

function obstacleTo(
  program: Program,
  programs: readonly Program[] | undefined,
): FileResult | undefined {
  if (programs === undefined) {
    return "unreachable";
  }
  const present = findProgram(programs, program);
  if (present === undefined || isDownloadOnly(present)) {
    return "gone";
  }
  return present.running ? "running" : undefined;
}
