import assert from "node:assert/strict";
import { test } from "node:test";
import { commandOf, type KeyPress } from "../../src/frame/keys";

const press = (key: string, change: Partial<KeyPress> = {}): KeyPress => ({
  key,
  code: "",
  altKey: false,
  ctrlKey: false,
  metaKey: false,
  repeat: false,
  ...change,
});

test("Escape stops whatever has the focus, and however it is held", () => {
  for (const focus of ["nothing", "control", "text"] as const) {
    assert.deepEqual(commandOf(press("Escape"), focus), { kind: "stop" });
    assert.deepEqual(commandOf(press("Escape", { ctrlKey: true, repeat: true }), focus), {
      kind: "stop",
    });
  }
});

test("Space stops only where nothing else wants it", () => {
  assert.deepEqual(commandOf(press(" "), "nothing"), { kind: "stop" });
  assert.equal(commandOf(press(" "), "control"), undefined);
  assert.equal(commandOf(press(" "), "text"), undefined);
});

test("a question mark lists the keys, but not while it is typed", () => {
  assert.deepEqual(commandOf(press("?"), "control"), { kind: "shortcuts" });
  assert.equal(commandOf(press("?"), "text"), undefined);
});

test("Alt and a digit go to a page", () => {
  const digit = press("2", { code: "Digit2", altKey: true });
  assert.deepEqual(commandOf(digit, "text"), { kind: "page", index: 1 });
  assert.equal(commandOf(press("2", { code: "Digit2" }), "nothing"), undefined);
  assert.equal(commandOf(press("a", { altKey: true }), "nothing"), undefined);
});
