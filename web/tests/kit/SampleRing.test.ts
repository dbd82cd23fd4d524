import assert from "node:assert/strict";
import { test } from "node:test";
import { effect, signal } from "@preact/signals";
import { SampleRing } from "../../src/kit/SampleRing";

test("keeps the newest rows, oldest first", () => {
  const ring = new SampleRing(3, 2);
  for (let row = 1; row <= 5; row += 1) {
    ring.push(row * 1000, row, -row);
  }
  assert.equal(ring.length, 3);
  assert.deepEqual(ring.columns(), [
    [3, 4, 5],
    [3, 4, 5],
    [-3, -4, -5],
  ]);
  assert.equal(ring.latest(1), -5);
});

test("what is missing or no finite number is a gap", () => {
  const ring = new SampleRing(4, 2);
  ring.push(0, null, 1);
  ring.push(1, Number.NaN, Number.POSITIVE_INFINITY);
  ring.push(2, 0);
  assert.deepEqual(ring.columns().slice(1), [
    [null, null, 0],
    [1, null, null],
  ]);
});

test("rows too far apart are not joined", () => {
  const ring = new SampleRing(5, 1, 1000);
  ring.push(0, 1);
  ring.push(1000, 2);
  ring.push(3000, 3);
  assert.deepEqual(ring.columns(), [
    [0, 1, 1.001, 3],
    [1, 2, null, 3],
  ]);
});

test("every row is a new version, and nothing is left after clearing", () => {
  const ring = new SampleRing(2, 1);
  const before = ring.version.value;
  ring.push(0, 1);
  assert.equal(ring.version.value, before + 1);
  ring.clear();
  assert.deepEqual(ring.columns(), [[], []]);
  assert.equal(ring.latest(0), null);
  assert.equal(ring.lastTime, undefined);
});

test("an effect that pushes what arrives does not call itself", () => {
  const ring = new SampleRing(5, 1);
  const arrivedAt = signal(0);
  const stop = effect(() => ring.push(arrivedAt.value, 1));
  arrivedAt.value = 1000;
  stop();
  assert.equal(ring.length, 2);
});
