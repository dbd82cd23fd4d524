import assert from "node:assert/strict";
import { test } from "node:test";
import { isLocked, isNotActive, isOwnUnit, isUp, toneOf } from "../../src/services/serviceState";
import type { Service } from "../../src/services/tree";

const service = (change: Partial<Service>): Service => ({
  name: "a",
  load: "loaded",
  active: "active",
  sub: "running",
  activated: true,
  ...change,
});

test("each state has its tone, and one that isn't known is no good one", () => {
  const tone = (active: string) => toneOf(service({ active }));
  assert.deepEqual(["active", "inactive", "failed", "activating", "", "constructor"].map(tone), [
    "ok",
    "neutral",
    "bad",
    "warn",
    "warn",
    "warn",
  ]);
  assert.equal(toneOf(service({ load: "not-found", active: "inactive" })), "bad");
});

test("what is up can be stopped", () => {
  const up = ["active", "activating", "reloading", "inactive", "failed", "deactivating"].filter(
    (active) => isUp(service({ active })),
  );
  assert.deepEqual(up, ["active", "activating", "reloading"]);
});

test("a masked service can't be started", () => {
  assert.ok(isLocked(service({ activated: false })));
  assert.ok(isLocked(service({ activated: undefined, load: "masked" })));
  assert.ok(!isLocked(service({ activated: undefined })));
});

test("templates and services that were switched off aren't missed", () => {
  assert.ok(isNotActive(service({ active: "failed" })));
  assert.ok(!isNotActive(service({})));
  assert.ok(!isNotActive(service({ name: "a@", active: "" })));
  assert.ok(!isNotActive(service({ active: "inactive", activated: false })));
});

test("the daemon's own unit is known", () => {
  assert.ok(isOwnUnit(service({ name: "tessarad" })));
  assert.ok(!isOwnUnit(service({ name: "tessarad-helper" })));
});
