import assert from "node:assert/strict";
import { test } from "node:test";
import { combined } from "../../src/drive/inputs";
import { LinkSpeed } from "../../src/drive/linkSpeed";
import { ramped } from "../../src/drive/ramp";
import { halved, isMaxima } from "../../src/drive/speedLimits";
import { clamped, standstill, sumOf } from "../../src/drive/velocity";

const maxima = { vx: 0.5, vy: 0.4, omega: 1 };

test("each part stays below its own limit", () => {
  assert.deepEqual(clamped([3, -3, 3], maxima), [0.499, -0.399, 0.999]);
  assert.deepEqual(clamped([0.1, 0.2, -0.3], maxima), [0.1, 0.2, -0.3]);
});

test("what is no number stands still", () => {
  assert.deepEqual(clamped([Number.NaN, Number.POSITIVE_INFINITY, -0], maxima), standstill);
});

test("a limit of nothing allows nothing", () => {
  assert.deepEqual(clamped([1, 1, 1], { vx: 0, vy: 0, omega: 0 }), standstill);
});

test("hands add up to one hand at most and keep the direction", () => {
  assert.deepEqual(
    sumOf([
      [1, 0, 0.7],
      [0, 1, 0.7],
    ]).map((part) => Math.round(part * 1000)),
    [707, 707, 1000],
  );
});

test("full speed takes 300 ms, standing still none", () => {
  let velocity = standstill;
  for (const share of [0.1, 0.2, 0.3, 0.4, 0.5, 0.5]) {
    velocity = ramped(velocity, [0.5, 0, 0], maxima, 60);
    assert.ok(Math.abs(velocity[0] - share) < 1e-9);
  }
  assert.deepEqual(ramped(velocity, standstill, maxima, 0), standstill);
});

test("a reversal starts from zero", () => {
  assert.ok(Math.abs(ramped([0.5, 0, 0], [-0.5, 0, 0], maxima, 60)[0] + 0.1) < 1e-9);
});

test("less is given at once", () => {
  assert.deepEqual(ramped([0.5, 0, 1], [0.2, 0, 0.5], maxima, 0), [0.2, 0, 0.5]);
});

test("only what is held moves, and what is out of its middle isn't neutral", () => {
  const inputs = combined([
    { isHeld: false, deflection: [1, 0, 0] },
    { isHeld: true, deflection: [0, 0, 0.5] },
  ]);
  assert.deepEqual(inputs, {
    isHeld: true,
    isNeutral: false,
    isStep: false,
    deflection: [0, 0, 0.5],
  });
  assert.equal(combined([{ isHeld: false, deflection: [0.2, 0, 0] }]).isNeutral, false);
  assert.equal(combined([]).isNeutral, true);
});

test("a link is slow above 150 ms and fast again below 120 ms", () => {
  const link = new LinkSpeed();
  link.note(140);
  assert.equal(link.isSlow, false);
  link.note(250);
  assert.equal(link.isSlow, true);
  link.note(60);
  assert.equal(link.isSlow, true);
  link.note(60);
  assert.equal(link.isSlow, false);
});

test("maxima are checked and halved down to something that still moves", () => {
  assert.equal(isMaxima(maxima), true);
  for (const wrong of [null, 1, {}, { ...maxima, vx: 0 }, { ...maxima, vy: "1" }]) {
    assert.equal(isMaxima(wrong), false);
  }
  assert.deepEqual(halved({ vx: 0.5, vy: 0.25, omega: 0.03 }), {
    vx: 0.25,
    vy: 0.125,
    omega: 0.02,
  });
});
