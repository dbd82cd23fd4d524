import assert from "node:assert/strict";
import { test } from "node:test";
import {
  bodyOf,
  changesOf,
  type Edits,
  problemOfValue,
  withEdit,
} from "../../src/configuration/changes";
import { daemonsIn, notTakenIn } from "../../src/configuration/readBack";
import { leavesOf } from "../../src/configuration/tree";
import { lights, reread, sample } from "./samples";

function edited(values: Record<string, string>): Edits {
  return leavesOf(sample()).reduce<Edits>((edits, leaf) => {
    const value = values[leaf.name];
    return value === undefined ? edits : withEdit(edits, leaf, value);
  }, {});
}

test("only changed leaves are sent, with their place as it was read", () => {
  const changes = changesOf(sample(), edited({ volume: "50", owner: "", brightness: "60" }));
  assert.deepEqual(bodyOf(changes), [
    { file: lights, group: "", name: "owner", value: "" },
    { file: lights, group: "Horn", name: "volume", value: "50" },
  ]);
});

test("a value that is set back is no change", () => {
  const [leaf] = leavesOf(sample());
  assert.ok(leaf);
  const edits = withEdit(withEdit({}, leaf, "other"), leaf, leaf.value);
  assert.deepEqual(edits, {});
});

test("a change that the file has meanwhile made itself is none", () => {
  assert.deepEqual(changesOf(reread({ volume: "50" }), edited({ volume: "50" })), []);
});

const values: [string, ReturnType<typeof problemOfValue>][] = [
  ["", undefined],
  ["a b  c = ü 🤖", undefined],
  ["  blanks before", undefined],
  ["a\nb", "control"],
  ["a\r", "control"],
  ["a\tb", "control"],
  ["a\u0000", "control"],
  ["a\u0085b", "control"],
  ["a\u2028b", "control"],
  ["\ud83e", "control"],
  ["blank behind ", "blank"],
  ["no-break\u00a0", "blank"],
];

for (const [value, problem] of values) {
  test(`the value ${JSON.stringify(value)} has ${problem ?? "no"} problem`, () => {
    assert.equal(problemOfValue(value), problem);
  });
}

test("a value that the file shows was taken", () => {
  const changes = changesOf(sample(), edited({ volume: "50" }));
  assert.deepEqual(notTakenIn(reread({ volume: "50" }), changes), []);
});

test("a value that the file does not show is listed with what it shows", () => {
  const changes = changesOf(sample(), edited({ volume: "50", owner: "me" }));
  const missing = notTakenIn(reread({ volume: "50" }), changes);
  assert.deepEqual(
    missing.map(({ leaf, value, found }) => [leaf.name, value, found]),
    [["owner", "me", "workshop"]],
  );
});

test("a file that is gone has taken nothing", () => {
  const changes = changesOf(sample(), edited({ volume: "50" }));
  assert.deepEqual(
    notTakenIn([], changes).map(({ found }) => found),
    [undefined],
  );
});

test("the daemons of a reply are named once each", () => {
  assert.deepEqual(daemonsIn({ daemons: ["tessarad", "lights", "tessarad"] }), [
    "tessarad",
    "lights",
  ]);
  for (const reply of [undefined, null, [], { daemons: 1 }, { daemons: [1] }]) {
    assert.deepEqual(daemonsIn(reply), []);
  }
});
