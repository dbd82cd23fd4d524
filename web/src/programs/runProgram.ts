import type { WriteOutcome } from "../data/requests";
import { findProgram, type Program, runningProgram } from "./programList";

/** What starting and stopping need of the world, so that tests can play it. */
export interface RunDeps {
  /** A fresh reading, undefined where there is none. */
  readPrograms(): Promise<readonly Program[] | undefined>;
  /** Whether there is output. A start empties it, so that afterwards it is the new run's. */
  hasPrinted(): Promise<boolean>;
  toggle(program: Program): Promise<WriteOutcome>;
  confirmReplacing(running: Program): Promise<boolean>;
  sleep(milliseconds: number): Promise<void>;
}

export type RunResult =
  | "done"
  | "ended"
  | "already"
  | "declined"
  | "gone"
  | "refused"
  | "unreachable"
  | "notSeen";

const pollMs = 250;
const patienceMs = 5000;

/**
 * The daemon's one command is a toggle. So the state is read again just before it, and nothing is
 * sent where the program already is as wanted.
 */
async function toggleTo(
  running: boolean,
  wanted: Program,
  deps: RunDeps,
  mayReplace = !running,
): Promise<RunResult> {
  const programs = await deps.readPrograms();
  if (programs === undefined) {
    return "unreachable";
  }
  const program = findProgram(programs, wanted);
  if (program === undefined) {
    return "gone";
  }
  if (program.running === running) {
    return "already";
  }
  const other = runningProgram(programs);
  if (!mayReplace && other !== undefined) {
    // The question may stand for long: what was read before it doesn't count any more.
    return (await deps.confirmReplacing(other)) ? toggleTo(true, wanted, deps, true) : "declined";
  }
  return toggleAndWatch(running, program, deps);
}

async function toggleAndWatch(
  running: boolean,
  program: Program,
  deps: RunDeps,
): Promise<RunResult> {
  const outcome = await deps.toggle(program);
  if (outcome.state !== "accepted") {
    return outcome.state;
  }
  for (let waited = 0; waited < patienceMs; waited += pollMs) {
    await deps.sleep(pollMs);
    // In this order: what has printed and isn't listed as running afterwards has ended.
    const hasPrinted = running && (await deps.hasPrinted());
    const programs = await deps.readPrograms();
    const state = programs && findProgram(programs, program)?.running;
    if (state === running) {
      return "done";
    }
    if (state === false && hasPrinted) {
      return "ended";
    }
  }
  return "notSeen";
}

/**
 * "ended" is a program that has printed and stopped before it was seen running; a silent one that
 * is as quick can't be told from one that never started, and both are "notSeen".
 */
export function startProgram(program: Program, deps: RunDeps): Promise<RunResult> {
  return toggleTo(true, program, deps);
}

/** "notSeen" means that it runs on: the daemon waits for an interpreter that never started. */
export function stopProgram(
  program: Program,
  deps: Pick<RunDeps, "readPrograms" | "toggle" | "sleep">,
): Promise<RunResult> {
  return toggleTo(false, program, {
    ...deps,
    hasPrinted: async () => false,
    confirmReplacing: async () => false,
  });
}
