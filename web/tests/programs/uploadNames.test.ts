import assert from "node:assert/strict";
import { test } from "node:test";
import { base64Of, freeFileName, problemOfFileName } from "../../src/programs/uploadNames";

const problems: [string, ReturnType<typeof problemOfFileName>][] = [
  ["square.lv", undefined],
  ["my program.v2.lv", undefined],
  ["Fräse.lv", undefined],
  ["", "empty"],
  ["   ", "empty"],
  ["../etc/passwd.lv", "slash"],
  ["a\\b.lv", "slash"],
  ["a\nb.lv", "control"],
  ["a\u007f.lv", "control"],
  ["a\u0085.lv", "control"],
  ["\ud800.lv", "control"],
  ["square", "noDot"],
  [".lv", "dotAtEdge"],
  ["..", "dotAtEdge"],
  ["square.", "dotAtEdge"],
  [" square.lv", "blankAtEdge"],
  ["square.lv ", "blankAtEdge"],
  [`${"ä".repeat(126)}.lv`, undefined],
  [`${"ä".repeat(127)}.lv`, "long"],
];

for (const [name, problem] of problems) {
  test(`the name ${JSON.stringify(name.slice(0, 20))} has ${problem ?? "no"} problem`, () => {
    assert.equal(problemOfFileName(name), problem);
  });
}

test("a free name counts on before the first dot", () => {
  assert.equal(freeFileName("square.lv", new Set(["square.lv"])), "square-2.lv");
  assert.equal(freeFileName("a.b.lv", new Set(["a.b.lv", "a-2.b.lv"])), "a-3.b.lv");
});

test("the Base64 part of a data URL is what follows its head", () => {
  assert.equal(base64Of("data:text/plain;base64,aGk="), "aGk=");
  assert.equal(base64Of('data:text/x;a="b,c";base64,aGk='), "aGk=");
  assert.equal(base64Of("data:"), "");
});
