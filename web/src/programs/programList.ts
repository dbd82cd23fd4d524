import { arrayOf } from "../data/decode";
import { textFields } from "./textFields";

/** A file in the robot's directory of programs; its name is split at the first dot. */
export interface Program {
  readonly name: string;
  readonly suffix: string;
  readonly running: boolean;
}

export function decodePrograms(json: unknown): Program[] | undefined {
  return arrayOf(json, (entry) => {
    const texts = textFields(entry, "name", "suffix", "action");
    return texts && { name: texts.name, suffix: texts.suffix, running: texts.action === "running" };
  });
}

export function fileNameOf(program: Pick<Program, "name" | "suffix">): string {
  return program.suffix === "" ? program.name : `${program.name}.${program.suffix}`;
}

/** The daemon puts a dot behind every name, so that it never reaches a file that has none. */
export function isDownloadOnly(program: Program): boolean {
  return program.suffix === "";
}

export function runningProgram(programs: readonly Program[]): Program | undefined {
  return programs.find((program) => program.running);
}

export function findProgram(
  programs: readonly Program[],
  wanted: Pick<Program, "name" | "suffix">,
): Program | undefined {
  return programs.find(
    (program) => program.name === wanted.name && program.suffix === wanted.suffix,
  );
}

/** Undefined for a name that can't be written into an address. */
export function downloadAddress(program: Program): string | undefined {
  try {
    return `/download/program/${encodeURIComponent(fileNameOf(program))}`;
  } catch {
    return undefined;
  }
}
