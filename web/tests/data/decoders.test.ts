import assert from "node:assert/strict";
import { test } from "node:test";
import * as decoders from "../../src/data/decoders";
import { asRole } from "../../src/data/roles";
import { randomJson, randomNumbers } from "../support/randomJson";

test("an odometry reading has seven numbers", () => {
  assert.deepEqual(decoders.decodeOdometry([1, 2, 3, 4, 5, 6, 7]), {
    x: 1,
    y: 2,
    phi: 3,
    vx: 4,
    vy: 5,
    omega: 6,
    seq: 7,
  });
  assert.equal(decoders.decodeOdometry([1, 2, 3, 4, 5, 6]), undefined);
  assert.equal(decoders.decodeOdometry([1, 2, 3, 4, 5, 6, null]), undefined);
});

test("a range without an echo is null", () => {
  const scan = {
    seq: 1,
    angle_min: -1,
    angle_increment: 0.5,
    range_min: 0,
    range_max: 9,
    ranges: [1, null, 2],
  };
  assert.deepEqual(decoders.decodeScan(scan)?.ranges, [1, null, 2]);
  assert.equal(decoders.decodeScan({ ...scan, ranges: [1, "2"] }), undefined);
  assert.equal(decoders.decodeScan({ ...scan, ranges: null }), undefined);
});

test("a distance that is no number is none, a missing voltage hides only itself", () => {
  assert.deepEqual(decoders.decodeDistances([0.5, null]), [0.5, Number.POSITIVE_INFINITY]);
  assert.deepEqual(decoders.decodeAnalogInputs([1, null]), [1, Number.NaN]);
});

test("a record of unknown shape becomes rows", () => {
  assert.deepEqual(decoders.decodeRecord({ a: { b: [1, true] }, c: "text", d: null }), [
    ["a b 0", "1"],
    ["a b 1", "true"],
    ["c", "text"],
    ["d", "null"],
  ]);
  assert.deepEqual(decoders.decodeRecord("Firmware 7"), [["", "Firmware 7"]]);
});

test("no decoder throws, whatever comes", () => {
  const random = randomNumbers(7);
  const all = [
    ...Object.values(decoders).filter((decode) => typeof decode === "function"),
    asRole,
  ] as ((json: unknown) => unknown)[];
  assert.ok(all.length > 9);
  for (let round = 0; round < 3000; round += 1) {
    const json = randomJson(random);
    for (const decode of all) {
      decode(json);
    }
  }
});
