import assert from "node:assert/strict";
import { test } from "node:test";
import { formatAngle, headingOf } from "../../src/overview/angles";

test("a heading lies within half a turn", () => {
  assert.ok(Math.abs(headingOf(3 * Math.PI) - Math.PI) < 1e-9);
  assert.ok(Math.abs(headingOf(-0.5) + 0.5) < 1e-9);
  assert.ok(Math.abs(headingOf(1.5 * Math.PI) + Math.PI / 2) < 1e-9);
});

test("angles come in the unit of the setting", () => {
  assert.equal(formatAngle(Math.PI, "degrees"), "180.0°");
  assert.equal(formatAngle(-1, "radians"), "−1.00 rad");
});
