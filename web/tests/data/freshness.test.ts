import assert from "node:assert/strict";
import { test } from "node:test";
import { freshnessOf, staleAfterMs } from "../../src/data/freshness";

test("a value is stale after three missed periods", () => {
  const limit = staleAfterMs(200, false);
  assert.equal(limit, 600);
  assert.equal(freshnessOf(1600, 1000, limit), "fresh");
  assert.equal(freshnessOf(1601, 1000, limit), "stale");
});

test("a numbered reading may rise more slowly than it is asked for", () => {
  assert.equal(staleAfterMs(200, true), 2000);
  assert.equal(staleAfterMs(1000, true), 3000);
});

test("what never came is none, and what came just now is fresh whatever the clock's tick", () => {
  assert.equal(freshnessOf(5000, undefined, 600), "none");
  assert.equal(freshnessOf(1000, 1900, 600), "fresh");
});
