import assert from "node:assert/strict";
import { test } from "node:test";
import { boundsOf, floorPlan, ringSpacing, robotPlan, scaleLength } from "../../src/robotView/plan";
import { lengthOf, Trace } from "../../src/robotView/trace";

function point(time: number, x: number, y = 0) {
  return { time, x, y, phi: 0 };
}

test("keeps the last 30 seconds", () => {
  const trace = new Trace();
  for (let time = 0; time <= 40_000; time += 200) {
    trace.add(point(time, time / 1000));
  }
  assert.equal(trace.points[0]?.time, 10_000);
  assert.equal(trace.points.at(-1)?.time, 40_000);
  trace.forget(80_000);
  assert.deepEqual(trace.points, []);
});

test("a pause in the readings is a gap, and its way doesn't count", () => {
  const trace = new Trace();
  for (const [time, x] of [
    [0, 0],
    [200, 1],
    [5000, 9],
    [5200, 10],
  ] as const) {
    trace.add(point(time, x));
  }
  assert.deepEqual(
    trace.lines.map((line) => line.map(({ x }) => x)),
    [
      [0, 1],
      [9, 10],
    ],
  );
  assert.equal(lengthOf(trace.lines), 2);
});

test("what is no position or comes late is left out", () => {
  const trace = new Trace();
  trace.add(point(100, 1));
  trace.add(point(100, 2));
  trace.add(point(50, 2));
  trace.add(point(200, Number.NaN));
  assert.equal(trace.points.length, 1);
});

test("ahead is up and left is left around the robot", () => {
  const plan = robotPlan(400, 300, 3);
  assert.equal(plan.pixelsPerMetre, 50);
  assert.deepEqual(plan.toPixels({ x: 0, y: 0 }), { left: 200, top: 150 });
  assert.deepEqual(plan.toPixels({ x: 1, y: 2 }), { left: 100, top: 100 });
});

test("a map has x to the right and y up, and fits", () => {
  const bounds = boundsOf([point(0, 0, 0), point(1, 4, 2)]);
  assert.deepEqual(bounds, { xMin: 0, xMax: 4, yMin: 0, yMax: 2 });
  const plan = floorPlan(448, 348, bounds ?? { xMin: 0, xMax: 0, yMin: 0, yMax: 0 });
  assert.equal(plan.pixelsPerMetre, 100);
  assert.deepEqual(plan.toPixels({ x: 2, y: 1 }), { left: 224, top: 174 });
  assert.deepEqual(plan.toPixels({ x: 4, y: 2 }), { left: 424, top: 74 });
});

test("a robot that stands isn't blown up", () => {
  const plan = floorPlan(248, 248, { xMin: 1, xMax: 1, yMin: 1, yMax: 1 });
  assert.equal(plan.pixelsPerMetre, 200);
});

test("no points have no bounds", () => {
  assert.equal(boundsOf([]), undefined);
});

test("the scale bar is a round length that fits", () => {
  assert.equal(scaleLength(50, 120), 2);
  assert.equal(scaleLength(200, 120), 0.5);
  assert.equal(scaleLength(5000, 120), 0.05);
});

test("rings stand apart", () => {
  assert.equal(ringSpacing(50), 1);
  assert.equal(ringSpacing(22), 2);
  assert.equal(ringSpacing(1000), 0.1);
  assert.equal(ringSpacing(1), 10);
});
