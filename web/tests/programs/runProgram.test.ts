import assert from "node:assert/strict";
import { test } from "node:test";
import type { WriteOutcome } from "../../src/data/requests";
import type { Program } from "../../src/programs/programList";
import { type RunDeps, startProgram, stopProgram } from "../../src/programs/runProgram";

const stopped = (name: string): Program => ({ name, suffix: "lv", running: false });
const running = (name: string): Program => ({ name, suffix: "lv", running: true });
const accepted: WriteOutcome = { state: "accepted", value: undefined };

interface Robot extends RunDeps {
  readonly toggled: string[];
  readonly asked: string[];
  waitedMs: number;
}

/** Gives the readings one after the other, the last one for ever. */
function robot(readings: (Program[] | undefined)[], change: Partial<RunDeps> = {}): Robot {
  let next = 0;
  const self: Robot = {
    toggled: [],
    asked: [],
    waitedMs: 0,
    readPrograms: async () => readings[Math.min(next++, readings.length - 1)],
    hasPrinted: async () => false,
    toggle: async (program) => {
      self.toggled.push(program.name);
      return accepted;
    },
    confirmReplacing: async (other) => {
      self.asked.push(other.name);
      return true;
    },
    sleep: async (milliseconds) => {
      self.waitedMs += milliseconds;
    },
    ...change,
  };
  return self;
}

test("a start is done when the program is seen running", async () => {
  const deps = robot([[stopped("a")], [stopped("a")], [running("a")]]);
  assert.equal(await startProgram(stopped("a"), deps), "done");
  assert.deepEqual(deps.toggled, ["a"]);
});

test("a program that has been started elsewhere meanwhile is not stopped", async () => {
  const deps = robot([[running("a")]]);
  assert.equal(await startProgram(stopped("a"), deps), "already");
  assert.deepEqual(deps.toggled, []);
});

test("a program that has ended meanwhile is not started by a stop", async () => {
  const deps = robot([[stopped("a")]]);
  assert.equal(await stopProgram(running("a"), deps), "already");
  assert.deepEqual(deps.toggled, []);
});

test("another program that runs is replaced only after a question", async () => {
  const agreed = robot([
    [running("b"), stopped("a")],
    [running("b"), stopped("a")],
    [running("a")],
  ]);
  assert.equal(await startProgram(stopped("a"), agreed), "done");
  assert.deepEqual(agreed.asked, ["b"]);

  const declined = robot([[running("b"), stopped("a")]], { confirmReplacing: async () => false });
  assert.equal(await startProgram(stopped("a"), declined), "declined");
  assert.deepEqual(declined.toggled, []);
});

test("a program that was started during the question is not stopped by the answer", async () => {
  const deps = robot([[running("b"), stopped("a")], [running("a")]]);
  assert.equal(await startProgram(stopped("a"), deps), "already");
  assert.deepEqual(deps.toggled, []);
});

test("a program that prints and ends at once has run", async () => {
  const deps = robot([[stopped("a")]], { hasPrinted: async () => true });
  assert.equal(await startProgram(stopped("a"), deps), "ended");
});

test("a start that shows nothing is given up after five seconds", async () => {
  const deps = robot([[stopped("a")]]);
  assert.equal(await startProgram(stopped("a"), deps), "notSeen");
  assert.equal(deps.waitedMs, 5000);
});

test("a program that can't be stopped is told", async () => {
  assert.equal(await stopProgram(running("a"), robot([[running("a")]])), "notSeen");
});

test("a reading that fails while waiting is no change", async () => {
  const deps = robot([[running("a")], undefined, undefined, [stopped("a")]]);
  assert.equal(await stopProgram(running("a"), deps), "done");
});

test("nothing is sent without a reading, or for a file that is gone", async () => {
  assert.equal(await startProgram(stopped("a"), robot([undefined])), "unreachable");
  assert.equal(await startProgram(stopped("a"), robot([[stopped("b")]])), "gone");
});

test("what the robot refuses is told", async () => {
  const refusing = { toggle: async (): Promise<WriteOutcome> => ({ state: "refused" }) };
  assert.equal(await startProgram(stopped("a"), robot([[stopped("a")]], refusing)), "refused");
});
