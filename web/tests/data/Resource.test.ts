import assert from "node:assert/strict";
import { beforeEach, test } from "node:test";
import { asNumber, field } from "../../src/data/decode";
import { noteReached, noteUnreachable } from "../../src/data/link";
import { Resource } from "../../src/data/Resource";
import { pausePolling } from "../../src/data/scheduler";
import { settle, stubFetch } from "../support/fetchStub";

let web = stubFetch();

beforeEach(() => {
  web = stubFetch();
  pausePolling(undefined);
  noteReached();
});

const numbers = () =>
  new Resource("/data/number", { decode: (json) => asNumber(field(json, "n")), periodMs: 1 });

async function answer(text: string): Promise<void> {
  web.open[0]?.reply(text);
  await settle();
}

test("polls while it is held, one request at a time", async () => {
  const resource = numbers();
  const release = resource.hold();
  const releaseSecond = resource.hold();
  void resource.refresh();
  assert.equal(web.open.length, 1);
  await answer('{"n": 1}');
  assert.equal(resource.value.value, 1);
  await new Promise((resolve) => setTimeout(resolve, 10));
  assert.equal(web.open.length, 1);
  release();
  await answer('{"n": 2}');
  assert.equal(resource.value.value, 2);
  releaseSecond();
  await new Promise((resolve) => setTimeout(resolve, 10));
  assert.equal(web.open.length, 0);
});

test("an empty and a malformed reply leave the last value, which ages", async () => {
  const resource = numbers();
  assert.equal(resource.freshness.value, "none");
  void resource.refresh();
  await answer('{"n": 1}');
  const arrivedAt = resource.arrivedAt.value;
  for (const text of ["", "{", "[]", '{"n": "1"}']) {
    void resource.refresh();
    await answer(text);
  }
  assert.equal(resource.value.value, 1);
  assert.equal(resource.arrivedAt.value, arrivedAt);
});

test("a reading with the number of the one before is not a new one", async () => {
  const resource = new Resource<{ seq: number }>("/data/scan0", {
    decode: (json) => json as { seq: number },
    periodMs: 1,
    sequenceOf: (reading) => reading.seq,
  });
  void resource.refresh();
  await answer('{"seq": 5}');
  const first = resource.value.value;
  void resource.refresh();
  await answer('{"seq": 5}');
  assert.equal(resource.value.value, first);
  void resource.refresh();
  await answer('{"seq": 6}');
  assert.deepEqual(resource.value.value, { seq: 6 });
});

test("rests while another tab drives and while the link is lost, and asks at once after it", async () => {
  const resource = numbers();
  const release = resource.hold();
  await answer('{"n": 1}');
  pausePolling("another tab is driving");
  await new Promise((resolve) => setTimeout(resolve, 10));
  web.open[0]?.reply("");
  await new Promise((resolve) => setTimeout(resolve, 10));
  assert.equal(web.open.length, 0);
  pausePolling(undefined);
  assert.equal(web.open.length, 1);
  await answer('{"n": 2}');
  noteUnreachable();
  noteUnreachable();
  await new Promise((resolve) => setTimeout(resolve, 10));
  assert.equal(web.open.length, 0);
  noteReached();
  assert.equal(web.open.length, 1);
  release();
  await answer("");
});

test("asks for nothing that the role may not see", () => {
  const resource = new Resource("/data/config", {
    decode: (json) => json,
    periodMs: 1,
    needs: "admin",
  });
  const release = resource.hold();
  assert.equal(web.open.length, 0);
  release();
});

test("the fastest of its holders sets the pace", async () => {
  const resource = new Resource("/data/bumper", { decode: asNumber, periodMs: 5 });
  const releaseSlow = resource.hold(60_000);
  await answer("1");
  await new Promise((resolve) => setTimeout(resolve, 15));
  assert.equal(web.open.length, 0);
  const releaseFast = resource.hold();
  assert.equal(web.open.length, 1);
  await answer("1");
  await new Promise((resolve) => setTimeout(resolve, 15));
  assert.equal(web.open.length, 1);
  releaseFast();
  releaseSlow();
  await answer("1");
});

test("text that is no JSON reaches the decoder where it is accepted", async () => {
  const resource = new Resource("/data/controllerinfo", {
    decode: (json) => String(json),
    periodMs: 1,
    acceptText: true,
  });
  void resource.refresh();
  await answer("Firmware 7");
  assert.equal(resource.value.value, "Firmware 7");
});
