import assert from "node:assert/strict";
import { test } from "node:test";
import { DriveLease, type LeaseChannel } from "../../src/drive/driveLease";
import { FakeClock } from "./fakes";

/** Delivers at once, to all but the sender. */
function openAir() {
  const channels: LeaseChannel[] = [];
  return () => {
    const channel: LeaseChannel = {
      onmessage: null,
      postMessage(data) {
        for (const other of channels) {
          if (other !== channel) {
            other.onmessage?.({ data } as MessageEvent);
          }
        }
      },
    };
    channels.push(channel);
    return channel;
  };
}

function setUp() {
  const clock = new FakeClock();
  const open = openAir();
  const heard: string[] = [];
  const tab = (name: string) =>
    new DriveLease(name, clock, open(), {
      lost: () => heard.push(`${name} lost`),
      stopWanted: () => heard.push(`${name} stop`),
    });
  return { clock, heard, tab };
}

test("one tab drives, the other one waits until it is free", () => {
  const { tab } = setUp();
  const [one, other] = [tab("a"), tab("b")];
  assert.equal(one.take(), true);
  assert.equal(other.take(), false);
  assert.deepEqual([one.holder.value, other.holder.value], ["me", "other"]);
  one.release();
  assert.equal(other.holder.value, "nobody");
  assert.equal(other.take(), true);
});

test("a tab that opens later learns who drives", () => {
  const { tab } = setUp();
  tab("b").take();
  assert.equal(tab("a").take(), false);
});

test("taking over is told to the one that drove", () => {
  const { heard, tab } = setUp();
  const [one, other] = [tab("a"), tab("b")];
  one.take();
  assert.equal(other.take(true), true);
  assert.deepEqual(heard, ["a lost"]);
  assert.deepEqual([one.holder.value, other.holder.value], ["other", "me"]);
});

test("a tab that is gone without a word is forgotten", async () => {
  const { clock, tab } = setUp();
  const open = openAir();
  const heard = { lost() {}, stopWanted() {} };
  const channel = open();
  const waiting = new DriveLease("a", clock, open(), heard);
  channel.postMessage({ kind: "mine", tab: "z" });
  assert.equal(waiting.holder.value, "other");
  await clock.pass(2500);
  assert.equal(waiting.holder.value, "nobody");
  assert.equal(tab("c").take(), true);
});

test("a tab that drives on isn't forgotten", async () => {
  const { clock, tab } = setUp();
  const [one, other] = [tab("a"), tab("b")];
  one.take();
  await clock.pass(60_000);
  assert.deepEqual([one.holder.value, other.holder.value], ["me", "other"]);
});

test("a stop reaches all other tabs", () => {
  const { heard, tab } = setUp();
  const [one] = [tab("a"), tab("b"), tab("c")];
  one?.stopOthers();
  assert.deepEqual(heard, ["b stop", "c stop"]);
});

test("without a channel a tab is alone", () => {
  const heard = { lost() {}, stopWanted() {} };
  assert.equal(new DriveLease("a", new FakeClock(), undefined, heard).take(), true);
});
