import { arrayOf, asString, field } from "../data/decode";

/** A file in the robot's directory of programs; its name is split at the first dot. */
export interface Program {
  readonly name: string;
  readonly suffix: string;
  readonly running: boolean;
}

export function decodePrograms(json: unknown): Program[] | undefined {
  return arrayOf(json, (entry) => {
    const name = asString(field(entry, "name"));
    const suffix = asString(field(entry, "suffix"));
    const action = asString(field(entry, "action"));
    return name === undefined || suffix === undefined || action === undefined
      ? undefined
      : { name, suffix, running: action === "running" };
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
