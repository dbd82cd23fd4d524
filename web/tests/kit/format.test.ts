import assert from "node:assert/strict";
import { test } from "node:test";
import { formatAge, formatBytes, formatNumber } from "../../src/kit/format";

test("numbers have fixed digits and no negative zero", () => {
  assert.equal(formatNumber(1.005, 1), "1.0");
  assert.equal(formatNumber(-0.001), "0.00");
  assert.equal(formatNumber(-1.5, 1), "−1.5");
  assert.equal(formatNumber(Number.NaN), "–");
  assert.equal(formatNumber(undefined), "–");
  assert.equal(formatNumber(Number.NEGATIVE_INFINITY), "−∞");
});

test("ages are as exact as they need to be", () => {
  assert.deepEqual([-5, 400, 12_000, 180_000, 7_200_000].map(formatAge), [
    "0 s",
    "0 s",
    "12 s",
    "3 min",
    "2 h",
  ]);
});

test("sizes", () => {
  assert.deepEqual([0, 999, 1500, 32_000_000].map(formatBytes), [
    "0 B",
    "999 B",
    "1.5 kB",
    "32.0 MB",
  ]);
});
