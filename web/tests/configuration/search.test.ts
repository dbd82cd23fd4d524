import assert from "node:assert/strict";
import { test } from "node:test";
import { filtered } from "../../src/configuration/search";
import { leavesOf } from "../../src/configuration/tree";
import { sample } from "./samples";

function found(search: string): string[] {
  return leavesOf(filtered(sample(), search)).map(({ name }) => name);
}

test("an empty search finds everything", () => {
  assert.equal(found(" ").length, 5);
});

test("all words have to be found, in whatever place", () => {
  assert.deepEqual(found("LAMPS bright"), ["brightness"]);
  assert.deepEqual(found("lights.conf 40"), ["volume"]);
  assert.deepEqual(found("horn brightness"), []);
});

test("a secret is not found by its value", () => {
  assert.deepEqual(found("hidden"), []);
  assert.deepEqual(found("password"), ["password"]);
});

test("groups and files without a match are left out", () => {
  const files = filtered(sample(), "volume");
  assert.deepEqual(
    files.flatMap(({ groups }) => groups.map(({ name }) => name)),
    ["Horn"],
  );
  assert.deepEqual(filtered(sample(), "nothing like it"), []);
});

test("a filter narrows the search", () => {
  const files = filtered(sample(), "", (leaf) => leaf.name === "owner");
  assert.deepEqual(
    leavesOf(files).map(({ name }) => name),
    ["owner"],
  );
});
