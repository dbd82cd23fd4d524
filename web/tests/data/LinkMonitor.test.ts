import assert from "node:assert/strict";
import { test } from "node:test";
import { LinkMonitor, retryDelayMs } from "../../src/data/LinkMonitor";

test("one failure soon after an answer does not lose the link", () => {
  const monitor = new LinkMonitor(0);
  monitor.failed(1000);
  assert.equal(monitor.lostSince, undefined);
  monitor.succeeded(1100);
  monitor.failed(2000);
  assert.equal(monitor.lostSince, undefined);
});

test("the second failure in a row loses it, since that moment", () => {
  const monitor = new LinkMonitor(0);
  monitor.failed(100);
  monitor.failed(200);
  monitor.failed(300);
  assert.equal(monitor.lostSince, 200);
});

test("so does one failure after three seconds without an answer", () => {
  const monitor = new LinkMonitor(0);
  monitor.failed(3000);
  assert.equal(monitor.lostSince, 3000);
  monitor.succeeded(3100);
  assert.equal(monitor.lostSince, undefined);
});

test("attempts come after 1, 2, 4 and then always 8 seconds", () => {
  assert.deepEqual([0, 1, 2, 3, 4, 50].map(retryDelayMs), [1000, 2000, 4000, 8000, 8000, 8000]);
});
