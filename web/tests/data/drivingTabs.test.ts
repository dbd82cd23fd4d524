import assert from "node:assert/strict";
import { test } from "node:test";
import { shareDriving, type TabChannel } from "../../src/data/drivingTabs";
import { pollingPaused, setDriving } from "../../src/data/scheduler";
import { fakeTimers } from "../support/fakeTimers";

test("a tab rests while another one drives, until that ends or falls silent", () => {
  const timers = fakeTimers();
  const sent: unknown[] = [];
  const channel: TabChannel = { postMessage: (message) => sent.push(message), onmessage: null };
  const hear = (data: unknown) => channel.onmessage?.({ data } as MessageEvent);
  shareDriving("another tab is driving", channel);

  hear(true);
  assert.equal(pollingPaused.value, "another tab is driving");
  hear(false);
  assert.equal(pollingPaused.value, undefined);

  hear(true);
  timers.tick(2000);
  hear(true);
  timers.tick(2000);
  assert.notEqual(pollingPaused.value, undefined);
  timers.tick(600);
  assert.equal(pollingPaused.value, undefined);

  hear(true);
  setDriving(true);
  assert.equal(pollingPaused.value, undefined);
  timers.tick(2000);
  setDriving(false);
  assert.deepEqual(sent, [true, true, true, false]);
  timers.tick(5000);
  assert.equal(sent.length, 4);
  timers.restore();
});
