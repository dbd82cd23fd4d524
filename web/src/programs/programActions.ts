import { signal } from "@preact/signals";
import { asArray } from "../data/decode";
import { read, type WriteOutcome, write } from "../data/requests";
import { confirm } from "../kit/questions";
import { toast } from "../kit/toasts";
import { fileTexts, programsTexts, startTexts, stopTexts } from "../texts/programs";
import { type FileDeps, type FileResult, removeProgram, renameProgram } from "./changeFile";
import { noteStart } from "./outputLog";
import { decodePrograms, fileNameOf, type Program } from "./programList";
import { outputPath, programs, programsPath } from "./resources";
import { type RunDeps, type RunResult, startProgram, stopProgram } from "./runProgram";

/** The file that something is being done with. One at a time: all runs share one interpreter. */
export const busyFile = signal<string | undefined>(undefined);

export async function readPrograms(): Promise<Program[] | undefined> {
  const outcome = await read(programsPath);
  return outcome.state === "answer" ? decodePrograms(outcome.value) : undefined;
}

const sleep = (milliseconds: number) =>
  new Promise<void>((resolve) => setTimeout(resolve, milliseconds));

function toggle({ name, suffix }: Program): Promise<WriteOutcome> {
  return write("/data/startStopProgram", { name, suffix });
}

async function hasPrinted(): Promise<boolean> {
  const outcome = await read(outputPath);
  return outcome.state === "answer" && (asArray(outcome.value)?.length ?? 0) > 0;
}

const startDeps = (file: string): RunDeps => ({
  readPrograms,
  hasPrinted,
  sleep,
  toggle: async (program) => {
    const outcome = await toggle(program);
    if (outcome.state === "accepted") {
      await noteStart();
    }
    return outcome;
  },
  confirmReplacing: (other) =>
    confirm({
      title: programsTexts.replaceTitle(file),
      body: programsTexts.replaceBody(fileNameOf(other)),
      action: programsTexts.replaceAction,
    }),
});

async function whileBusy<T>(file: string, work: () => Promise<T>): Promise<T> {
  busyFile.value = file;
  try {
    return await work();
  } finally {
    busyFile.value = undefined;
    void programs.refresh();
  }
}

export async function start(program: Program): Promise<RunResult> {
  const file = fileNameOf(program);
  const result = await whileBusy(file, () => startProgram(program, startDeps(file)));
  const text = startTexts[result]?.(file);
  if (text !== undefined) {
    toast(text, { kind: result === "ended" || result === "already" ? "info" : "error" });
  }
  return result;
}

export async function stop(program: Program): Promise<RunResult> {
  const file = fileNameOf(program);
  const deps = { readPrograms, toggle, sleep };
  const result = await whileBusy(file, () => stopProgram(program, deps));
  const text = stopTexts[result]?.(file);
  if (text !== undefined) {
    toast(text, { kind: result === "already" ? "info" : "error" });
  }
  return result;
}

export function rename(program: Program, newName: string): Promise<FileResult> {
  const send = ({ name, suffix }: Program) =>
    write("/data/renameprogram", [{ name, old: program.name, suffix }]);
  return changed(program, (deps) => renameProgram(program, newName, deps), send);
}

export async function remove(program: Program): Promise<void> {
  const file = fileNameOf(program);
  const agreed = await confirm({
    title: programsTexts.removeTitle(file),
    body: programsTexts.removeBody,
    action: programsTexts.remove,
    danger: true,
  });
  if (agreed) {
    const send = ({ name, suffix }: Program) => write("/data/remove", { name, suffix });
    await changed(program, (deps) => removeProgram(program, deps), send);
  }
}

async function changed(
  program: Program,
  work: (deps: FileDeps) => Promise<FileResult>,
  send: FileDeps["send"],
): Promise<FileResult> {
  const file = fileNameOf(program);
  const result = await whileBusy(file, () => work({ readPrograms, send }));
  if (result !== "done") {
    toast(fileTexts[result](file), { kind: "error" });
  }
  return result;
}
