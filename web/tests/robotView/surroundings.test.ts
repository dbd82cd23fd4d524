import assert from "node:assert/strict";
import { test } from "node:test";
import { bearingOf, nearestEcho } from "../../src/robotView/nearestEcho";
import { numberOf } from "../../src/robotView/numberText";
import { type Scan, scanEchoes } from "../../src/robotView/scanEchoes";
import { sensorAngle, sensorReadings } from "../../src/robotView/sensorEchoes";
import { asSensorGeometry, defaultSensorGeometry } from "../../src/robotView/sensorGeometry";
import { surroundingsOf } from "../../src/robotView/surroundings";

const quarter = Math.PI / 2;

function scanOf(...ranges: (number | null)[]): Scan {
  return { angleMin: -quarter, angleIncrement: quarter, rangeMin: 0.1, rangeMax: 5, ranges };
}

test("null, zero, less than the least and the largest range are no obstacles", () => {
  assert.deepEqual(scanEchoes(scanOf(null, 0, 0.05, 5, 6, Number.NaN), 0), []);
});

test("rays go from the first angle to the left", () => {
  assert.deepEqual(scanEchoes(scanOf(1, 2, 3), 0), [
    { angle: -quarter, distance: 1 },
    { angle: 0, distance: 2 },
    { angle: quarter, distance: 3 },
  ]);
});

test("a scan without a largest range is taken as it is", () => {
  assert.equal(scanEchoes({ ...scanOf(900), rangeMax: 0 }, 0).length, 1);
});

test("a turned scanner turns its scan", () => {
  assert.deepEqual(scanEchoes(scanOf(1), quarter), [{ angle: 0, distance: 1 }]);
});

test("distance sensors are 40 degrees apart, to the left or to the right", () => {
  const degrees = (index: number, direction: "left" | "right") =>
    Math.round(
      (sensorAngle(index, { ...defaultSensorGeometry, startAngleDeg: 10, direction }) * 180) /
        Math.PI,
    );
  assert.deepEqual(
    [0, 1, 8].map((index) => degrees(index, "left")),
    [10, 50, 330],
  );
  assert.deepEqual(
    [0, 1, 8].map((index) => degrees(index, "right")),
    [10, -30, -310],
  );
});

test("distances come in the chosen unit, and their limit means that nothing is near", () => {
  const geometry = { ...defaultSensorGeometry, metresPerUnit: 0.01 };
  const distances = sensorReadings([10, 40, Number.POSITIVE_INFINITY, -1], geometry);
  assert.deepEqual(
    distances.map((reading) => reading.distance),
    [0.1, undefined, undefined, undefined],
  );
});

test("more than nine distances are cut", () => {
  assert.equal(sensorReadings(Array(12).fill(0.1), defaultSensorGeometry).length, 9);
});

test("the nearest obstacle counts from the hull, whoever has seen it", () => {
  const byScan = surroundingsOf(scanOf(2, 1, 3), undefined, defaultSensorGeometry).nearest;
  assert.deepEqual(byScan, { angle: 0, distance: 1 - defaultSensorGeometry.robotRadius });
  const bySensor = surroundingsOf(scanOf(2, 1, 3), [0.4, 0.25], defaultSensorGeometry).nearest;
  assert.ok(Math.abs((bySensor?.distance ?? 0) - 0.25) < 1e-9);
  assert.deepEqual(bearingOf(bySensor?.angle ?? 0), { side: "left", degrees: 40 });
});

test("something inside the hull is at no distance", () => {
  assert.equal(surroundingsOf(scanOf(0.15), undefined, defaultSensorGeometry).nearest?.distance, 0);
});

test("without readings there is nothing", () => {
  assert.equal(nearestEcho([]), undefined);
  assert.deepEqual(surroundingsOf(undefined, undefined, defaultSensorGeometry), {
    scanPoints: [],
    sensors: [],
    nearest: undefined,
  });
});

test("bearings are said as people say them", () => {
  assert.deepEqual(bearingOf(0.001), { side: "ahead" });
  assert.deepEqual(bearingOf(Math.PI), { side: "behind" });
  assert.deepEqual(bearingOf(-Math.PI), { side: "behind" });
  assert.deepEqual(bearingOf((320 * Math.PI) / 180), { side: "right", degrees: 40 });
});

test("a stored geometry is taken only as a whole", () => {
  assert.equal(asSensorGeometry(defaultSensorGeometry), defaultSensorGeometry);
  for (const wrong of [undefined, 1, {}, { ...defaultSensorGeometry, direction: "up" }]) {
    assert.equal(asSensorGeometry(wrong), undefined);
  }
  assert.equal(asSensorGeometry({ ...defaultSensorGeometry, robotRadius: "1" }), undefined);
});

test("typed numbers may have a comma and must be in bounds", () => {
  assert.equal(numberOf(" 0,25 ", 0, 1), 0.25);
  for (const wrong of ["", " ", "1.5", "-1", "x", "1e9"]) {
    assert.equal(numberOf(wrong, 0, 1), undefined);
  }
});
