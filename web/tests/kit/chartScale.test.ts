import assert from "node:assert/strict";
import { test } from "node:test";
import { rangeOf, secondStep, tickStep, ticksWithin } from "../../src/kit/chartScale";

test("a value that stands still lies in the middle", () => {
  const [least, most] = rangeOf([[5, null, 5]]);
  assert.ok(Math.abs((least + most) / 2 - 5) < 1e-9);
  assert.ok(most > least);
  const [low, high] = rangeOf([[1e12, 1e12]]);
  assert.ok(high > low);
});

test("without values there is a range nevertheless", () => {
  assert.deepEqual(rangeOf([]), [0, 1]);
  assert.deepEqual(rangeOf([[null]]), [0, 1]);
});

test("ticks are round and few", () => {
  assert.deepEqual(tickStep(10, 5), { step: 2, digits: 0 });
  assert.deepEqual(tickStep(0.1, 4), { step: 0.05, digits: 2 });
  assert.equal(secondStep(30, 4), 10);
  assert.equal(secondStep(600, 3), 300);
  assert.equal(secondStep(36_000, 3), 14_400);
  assert.deepEqual(
    ticksWithin(-1, 5, 2),
    [0, 2, 4].map((tick) => tick + 0),
  );
  assert.ok(ticksWithin(0, 1e9, 1).length <= 50);
});
