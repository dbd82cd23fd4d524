import assert from "node:assert/strict";
import { test } from "node:test";
import { decodeConfiguration, isSecret, leavesOf, optionsOf } from "../../src/configuration/tree";
import { lights, sample, sampleJson } from "./samples";

test("keys before the first section come first, in a group without a name", () => {
  const [file] = sample();
  assert.equal(file?.path, lights);
  assert.deepEqual(
    file?.groups.map(({ name, leaves }) => [name, leaves.map((leaf) => leaf.name)]),
    [
      ["", ["owner"]],
      ["Horn", ["volume", "warning"]],
      ["Lamps", ["brightness", "password"]],
    ],
  );
});

test("a present value that is none of the choices is kept as one", () => {
  const options = leavesOf(sample()).map((leaf) => [leaf.name, optionsOf(leaf)]);
  assert.deepEqual(Object.fromEntries(options).brightness, ["60", "25", "50", "75"]);
  assert.deepEqual(Object.fromEntries(options).warning, [""]);
});

test("a choice that is the present value stays in its place", () => {
  const [leaf] = leavesOf(sample()).filter(({ name }) => name === "brightness");
  assert.ok(leaf);
  assert.deepEqual(optionsOf({ ...leaf, value: "50" }), ["25", "50", "75"]);
});

test("of a key that occurs twice the last one is shown", () => {
  const leaf = { file: "/a.conf", group: "G", name: "n", type: "input" };
  const children = [
    { ...leaf, value: "1" },
    { ...leaf, value: "2" },
  ];
  const files = decodeConfiguration([
    { name: "/a.conf", _children: [{ name: "G", _children: children }] },
  ]);
  assert.deepEqual(
    leavesOf(files ?? []).map(({ value }) => value),
    ["2"],
  );
});

test("passwords are secrets, the rest is none", () => {
  const secrets = leavesOf(sample()).filter(isSecret);
  assert.deepEqual(
    secrets.map(({ name }) => name),
    ["password"],
  );
});

test("whatever is malformed gives nothing and throws nothing", () => {
  const odd: unknown[] = [
    null,
    1,
    "",
    {},
    [1],
    [{}],
    [{ name: "a" }],
    [{ name: 1, _children: [] }],
  ];
  for (const json of odd) {
    assert.equal(decodeConfiguration(json), undefined);
  }
  const [file] = sampleJson;
  assert.equal(decodeConfiguration([{ ...file, _children: [{ value: "no name" }] }]), undefined);
});
