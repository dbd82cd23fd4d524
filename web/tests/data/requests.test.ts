import assert from "node:assert/strict";
import { beforeEach, test } from "node:test";
import { linkState, noteReached } from "../../src/data/link";
import { addressOf, read, write } from "../../src/data/requests";
import { backgroundQueue, setDriving } from "../../src/data/scheduler";
import { settle, stubFetch } from "../support/fetchStub";

let web = stubFetch();

beforeEach(() => {
  web = stubFetch();
  setDriving(false);
  noteReached();
});

test("every address names the session in hexadecimal digits", () => {
  assert.match(addressOf("/data/odometry"), /^\/data\/odometry\?sid=[0-9a-f]{32}$/);
  assert.match(addressOf("/cam0?1"), /^\/cam0\?1&sid=[0-9a-f]{32}$/);
});

test("tells an answer, an empty and an unreadable reply apart", async () => {
  const outcomes = [read("/a"), read("/b"), read("/c"), read("/d")];
  web.open[0]?.reply("[1]");
  web.open[0]?.reply("");
  web.open[0]?.reply("{");
  web.open[0]?.fail();
  const [answer, empty, unreadable, unreachable] = await Promise.all(outcomes);
  assert.equal(answer?.state, "answer");
  assert.deepEqual(answer?.state === "answer" && answer.value, [1]);
  assert.equal(empty?.state, "empty");
  assert.deepEqual(unreadable, { state: "unreadable", text: "{" });
  assert.deepEqual(unreachable, { state: "unreachable" });
});

test("the background never takes more than four connections, and three while driving", async () => {
  const outcomes = Array.from({ length: 10 }, (_, index) => read(`/${index}`));
  assert.equal(web.open.length, 4);
  setDriving(true);
  web.open[0]?.reply("1");
  await settle();
  assert.equal(web.open.length, 3);
  while (web.open.length > 0) {
    web.open[0]?.reply("1");
    await settle();
    assert.ok(web.open.length <= 3);
  }
  await Promise.all(outcomes);
  assert.equal(backgroundQueue.running, 0);
});

test("the control lane does not wait for the background", async () => {
  const outcomes = Array.from({ length: 6 }, (_, index) => read(`/${index}`));
  const command = write("/data/omnidrive", [0, 0, 0], { lane: "control" });
  const sent = web.open.at(-1);
  assert.match(sent?.url ?? "", /omnidrive/);
  assert.equal(sent?.init.method, "PUT");
  assert.equal(sent?.init.body, "[0,0,0]");
  sent?.reply("");
  assert.deepEqual(await command, { state: "accepted", value: undefined });
  while (web.open.length > 0) {
    web.open[0]?.reply("1");
    await settle();
  }
  await Promise.all(outcomes);
});

test("a reply of 400 is a refusal and proves that the link holds", async () => {
  const outcome = write("/data/omnidrive", [9], { lane: "control" });
  web.open[0]?.reply("", 400);
  assert.deepEqual(await outcome, { state: "refused" });
  assert.equal(linkState.value, "connected");
});

test("a bare body goes as it is", async () => {
  const outcome = write("/data/startService", "tessarad", { bare: true, method: "POST" });
  assert.equal(web.open[0]?.init.body, "tessarad");
  web.open[0]?.reply("");
  await outcome;
});

test("gives up after its time", async () => {
  assert.deepEqual(await read("/slow", { timeoutMs: 10 }), { state: "unreachable" });
  assert.equal(web.open.length, 0);
});

test("what the caller aborts says nothing about the link", async () => {
  for (let attempt = 0; attempt < 3; attempt += 1) {
    const abort = new AbortController();
    const outcome = read("/slow", { signal: abort.signal });
    abort.abort();
    assert.deepEqual(await outcome, { state: "unreachable" });
  }
  assert.equal(linkState.value, "connected");
});

test("two failures in a row lose the link, one answer brings it back", async () => {
  for (const _ of [1, 2]) {
    const outcome = read("/a");
    web.open[0]?.fail();
    await outcome;
  }
  assert.equal(linkState.value, "lost");
  const outcome = read("/a");
  web.open[0]?.reply("");
  await outcome;
  assert.equal(linkState.value, "connected");
});
