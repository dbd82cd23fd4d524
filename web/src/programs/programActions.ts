import { signal } from "@preact/signals";
import { asArray } from "../data/decode";
import { read, type WriteOutcome, write } from "../data/requests";
import { confirm } from "../kit/questions";
import { toast } from "../kit/toasts";
import * as texts from "../texts/programs";
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
      title: texts.replaceTitle(file),
      body: texts.replaceBody(fileNameOf(other)),
      action: texts.replaceAction,
    }),
});

async function carryOut<Result extends RunResult | FileResult>(
  order: texts.ProgramOrder,
  file: string,
  work: () => Promise<Result>,
): Promise<Result> {
  busyFile.value = file;
  try {
    const result = await work();
    const told: RunResult | FileResult = result;
    if (told !== "done" && told !== "declined") {
      const kind = told === "ended" || told === "already" ? "info" : "error";
      toast(`${file} ${texts.resultTexts[told](order)}`, { kind });
    }
    return result;
  } finally {
    busyFile.value = undefined;
    void programs.refresh();
  }
}

export function start(program: Program): Promise<RunResult> {
  const file = fileNameOf(program);
  return carryOut("start", file, () => startProgram(program, startDeps(file)));
}

export function stop(program: Program): Promise<RunResult> {
  const deps = { readPrograms, toggle, sleep };
  return carryOut("stop", fileNameOf(program), () => stopProgram(program, deps));
}

export function rename(program: Program, newName: string): Promise<FileResult> {
  const send: FileDeps["send"] = ({ name, suffix }) =>
    write("/data/renameprogram", [{ name, old: program.name, suffix }]);
  const deps = { readPrograms, send };
  return carryOut("rename", fileNameOf(program), () => renameProgram(program, newName, deps));
}

export async function remove(program: Program): Promise<void> {
  const file = fileNameOf(program);
  const agreed = await confirm({
    title: texts.removeTitle(file),
    body: texts.removeBody,
    action: texts.remove,
    danger: true,
  });
  if (agreed) {
    const send: FileDeps["send"] = ({ name, suffix }) => write("/data/remove", { name, suffix });
    await carryOut("remove", file, () => removeProgram(program, { readPrograms, send }));
  }
}
