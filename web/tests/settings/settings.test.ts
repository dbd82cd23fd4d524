import assert from "node:assert/strict";
import { afterEach, beforeEach, test } from "node:test";
import {
  exportSettings,
  importSettings,
  resetSettings,
  setting,
} from "../../src/settings/settings";
import { anyBoolean, numberWithin, oneOf } from "../../src/settings/validators";

const kept = new Map<string, string>();

beforeEach(() => {
  kept.clear();
  Object.defineProperty(globalThis, "localStorage", {
    configurable: true,
    value: {
      getItem: (key: string) => kept.get(key) ?? null,
      setItem: (key: string, value: string) => kept.set(key, value),
    },
  });
});

afterEach(() => resetSettings());

test("a setting is kept and found again", () => {
  const side = setting("side", "left", oneOf("left", "right"));
  assert.equal(kept.size, 0);
  side.value = "right";
  assert.equal(kept.get("tessarad.side"), '"right"');
  assert.equal(setting("side", "left", oneOf("left", "right")).value, "right");
});

test("what was kept and does not fit gives way to the default", () => {
  for (const text of ["", "{", "null", '"up"', "7"]) {
    kept.set("tessarad.side", text);
    assert.equal(setting("side", "left", oneOf("left", "right")).value, "left");
  }
});

test("a browser that keeps nothing still changes settings", () => {
  Object.defineProperty(globalThis, "localStorage", {
    configurable: true,
    get: () => {
      throw new Error("denied");
    },
  });
  const speed = setting("speed", 1, numberWithin(0, 2));
  speed.value = 2;
  assert.equal(speed.value, 2);
});

test("an export is taken in again, and what does not fit is named", () => {
  const speed = setting("speed", 1, numberWithin(0, 2));
  const loud = setting("loud", false, anyBoolean);
  speed.value = 1.5;
  loud.value = true;
  const text = exportSettings();
  resetSettings();
  assert.equal(speed.value, 1);
  assert.ok(importSettings(text)?.taken.includes("speed"));
  assert.equal(speed.value, 1.5);
  assert.equal(loud.value, true);
  assert.deepEqual(importSettings('{"speed": 9, "loud": false, "unknown": 1}'), {
    taken: ["loud"],
    skipped: ["speed", "unknown"],
  });
  assert.equal(loud.value, false);
});

test("a text without settings is refused as a whole", () => {
  for (const text of ["", "[]", "7", "null", "{"]) {
    assert.equal(importSettings(text), undefined);
  }
});
