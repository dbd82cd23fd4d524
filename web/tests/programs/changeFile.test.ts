import assert from "node:assert/strict";
import { test } from "node:test";
import type { WriteOutcome } from "../../src/data/requests";
import { problemOfRename, removeProgram, renameProgram } from "../../src/programs/changeFile";
import type { Program } from "../../src/programs/programList";

const program = (name: string, running = false, suffix = "lv"): Program => ({
  name,
  suffix,
  running,
});

function robot(readings: (Program[] | undefined)[], outcome: WriteOutcome["state"] = "accepted") {
  const sent: string[] = [];
  return {
    sent,
    readPrograms: async () => (readings.length > 1 ? readings.shift() : readings[0]),
    send: async (changed: Program): Promise<WriteOutcome> => {
      sent.push(changed.name);
      return outcome === "accepted" ? { state: outcome, value: undefined } : { state: outcome };
    },
  };
}

test("a rename is done when the list shows it", async () => {
  const deps = robot([[program("a")], [program("b")]]);
  assert.equal(await renameProgram(program("a"), " b ", deps), "done");
  assert.deepEqual(deps.sent, ["b"]);
});

test("a rename onto a program that has come meanwhile is not sent", async () => {
  const deps = robot([[program("a"), program("b")]]);
  assert.equal(await renameProgram(program("a"), "b", deps), "taken");
  assert.deepEqual(deps.sent, []);
});

test("a running program is neither renamed nor removed", async () => {
  const deps = robot([[program("a", true)]]);
  assert.equal(await renameProgram(program("a"), "b", deps), "running");
  assert.equal(await removeProgram(program("a"), deps), "running");
  assert.deepEqual(deps.sent, []);
});

test("a rename that the list doesn't show is not done", async () => {
  assert.equal(await renameProgram(program("a"), "b", robot([[program("a")]])), "notSeen");
});

test("a removal is done when the list shows it no more", async () => {
  assert.equal(await removeProgram(program("a"), robot([[program("a")], []])), "done");
  assert.equal(await removeProgram(program("a"), robot([[program("a")]])), "notSeen");
  assert.equal(await removeProgram(program("a"), robot([[program("a")]], "refused")), "refused");
});

test("a file without a dot can't be reached", async () => {
  const file = program("notes", false, "");
  assert.equal(await removeProgram(file, robot([[file]])), "gone");
});

test("a new name is judged while it is typed", () => {
  const programs = [program("a"), program("b"), program("c", false, "txt")];
  const judge = (name: string) => problemOfRename(program("a"), name, programs);
  assert.equal(judge("a"), undefined);
  assert.equal(judge(" x "), undefined);
  assert.equal(judge("c"), undefined);
  assert.equal(judge("b"), "taken");
  assert.equal(judge("  "), "empty");
  assert.equal(judge("x.y"), "dot");
  assert.equal(judge("x/y"), "slash");
});
