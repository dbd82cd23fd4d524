import assert from "node:assert/strict";
import { test } from "node:test";
import {
  emptyScrollback,
  mergeRing,
  overlapLength,
  restarted,
  type Scrollback,
} from "../../src/programs/ringMerge";

function shown(scrollback: Scrollback): string[] {
  return scrollback.entries.map((entry) =>
    entry.kind === "line" ? entry.text : `<${entry.kind}>`,
  );
}

function merged(...rings: string[][]): Scrollback {
  return rings.reduce((scrollback, ring) => mergeRing(scrollback, ring), emptyScrollback);
}

test("the first reading stands without a mark", () => {
  assert.deepEqual(shown(merged(["a", "b"])), ["a", "b"]);
});

test("a growing ring adds what is new", () => {
  assert.deepEqual(shown(merged(["a"], ["a", "b"], ["a", "b", "c"])), ["a", "b", "c"]);
});

test("a full ring that moves on adds what is new", () => {
  assert.deepEqual(shown(merged(["a", "b", "c"], ["b", "c", "d"], ["d", "e", "f"])), [..."abcdef"]);
});

test("a reading without anything in common is parted by a gap", () => {
  assert.deepEqual(shown(merged(["a", "b"], ["x", "y"])), ["a", "b", "<gap>", "x", "y"]);
});

test("a ring that shrank is a new start", () => {
  assert.deepEqual(shown(merged(["a", "b", "c"], ["a", "b"])), [
    "a",
    "b",
    "c",
    "<start>",
    "a",
    "b",
  ]);
});

test("a ring that was seen empty is a new start", () => {
  assert.deepEqual(shown(merged(["a"], [], ["a", "b"])), ["a", "<start>", "a", "b"]);
});

test("an announced start shows the same lines again", () => {
  const again = mergeRing(restarted(merged(["a", "b"])), ["a", "b"]);
  assert.deepEqual(shown(again), ["a", "b", "<start>", "a", "b"]);
});

test("an unchanged reading is the same object, so that nothing is painted again", () => {
  const before = merged(["a", "b"]);
  assert.equal(mergeRing(before, ["a", "b"]), before);
});

test("the longest overlap counts where lines repeat", () => {
  assert.equal(overlapLength(["a", "b", "a", "b"], ["a", "b", "a", "b", "c"]), 4);
  assert.equal(overlapLength(["x", "a", "a"], ["a", "a", "a"]), 2);
  assert.equal(overlapLength(["a", "a", "b"], ["a", "a", "b"]), 3);
  assert.equal(overlapLength(["a", "b", "c", "d"], ["c", "d", "e"]), 2);
  assert.equal(overlapLength([], ["a"]), 0);
  assert.equal(overlapLength(["a"], []), 0);
});

test("the overlap is the one that plain comparison finds", () => {
  let seed = 7;
  const random = (below: number): number => {
    seed = (seed * 48271) % 2147483647;
    return seed % below;
  };
  const ring = (): string[] => Array.from({ length: random(9) }, () => "ab"[random(2)] ?? "");
  for (let round = 0; round < 3000; round += 1) {
    const older = ring();
    const newer = ring();
    let expected = Math.min(older.length, newer.length);
    while (older.slice(older.length - expected).join() !== newer.slice(0, expected).join()) {
      expected -= 1;
    }
    assert.equal(overlapLength(older, newer), expected, `${older} | ${newer}`);
  }
});

test("the scrollback keeps its newest lines and counts the others", () => {
  const lines = Array.from({ length: 7 }, (_, index) => `${index}`);
  const scrollback = mergeRing(mergeRing(emptyScrollback, lines, 5), [...lines, "7"], 5);
  assert.deepEqual(shown(scrollback), ["3", "4", "5", "6", "7"]);
  assert.equal(scrollback.dropped, 3);
});

test("a ring of many equal lines takes no time", () => {
  const lines = Array.from({ length: 20000 }, () => "x");
  assert.equal(overlapLength(lines, lines), 20000);
});
