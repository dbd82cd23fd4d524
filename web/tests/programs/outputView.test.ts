import assert from "node:assert/strict";
import { test } from "node:test";
import {
  blocksOf,
  entryCount,
  filteredEntries,
  outputFileName,
  outputText,
} from "../../src/programs/outputView";
import type { OutputEntry } from "../../src/programs/ringMerge";

const line = (text: string): OutputEntry => ({ kind: "line", text });

test("lines in a row are one piece and marks stand between", () => {
  const entries = [line("a"), line("b"), { kind: "gap" } as const, line("c")];
  assert.deepEqual(blocksOf(entries, 0), [
    {
      id: 0,
      parts: [{ kind: "lines", text: "a\nb\n" }, { kind: "gap" }, { kind: "lines", text: "c\n" }],
    },
  ]);
});

test("blocks keep their borders when lines leave at the front", () => {
  const entries = Array.from({ length: 450 }, (_, index) => line(`${index}`));
  const before = blocksOf(entries, 0);
  const after = blocksOf(entries.slice(30), 30);
  assert.deepEqual(
    before.map(({ id }) => id),
    [0, 1, 2],
  );
  assert.deepEqual(after.slice(1), before.slice(1));
  assert.equal(
    after
      .flatMap(({ parts }) => parts.map((part) => (part.kind === "lines" ? part.text : "")))
      .join(""),
    entries
      .slice(30)
      .map((entry) => (entry.kind === "line" ? `${entry.text}\n` : ""))
      .join(""),
  );
});

test("no entries are no blocks", () => {
  assert.deepEqual(blocksOf([], 7), []);
});

test("the filter leaves the lines that hold it, in any case", () => {
  const entries = [line("Corner 1"), { kind: "gap" } as const, line("bump")];
  assert.deepEqual(filteredEntries(entries, " CORNER "), [line("Corner 1")]);
  assert.equal(filteredEntries(entries, " "), entries);
});

test("a saved text tells the marks", () => {
  const entries = [line("a"), { kind: "gap" } as const, line("b"), { kind: "start" } as const];
  const text = outputText(entries, { gap: "missed", start: "started" });
  assert.equal(text, "a\n--- missed ---\nb\n--- started ---\n");
});

test("a saved file is named after its time", () => {
  assert.equal(outputFileName(new Date(2031, 0, 2, 3, 4, 5)), "output-2031-01-02-03-04-05.txt");
});

test("the count goes on when lines leave", () => {
  assert.equal(entryCount({ entries: [line("a")], ring: [], dropped: 4 }), 5);
});
