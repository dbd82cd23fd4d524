import assert from "node:assert/strict";
import { test } from "node:test";
import { RequestQueue } from "../../src/data/RequestQueue";
import { settle } from "../support/fetchStub";

function deferred() {
  let finish = () => {};
  const promise = new Promise<void>((resolve) => {
    finish = resolve;
  });
  return { promise, finish };
}

test("never runs more jobs than its limit", async () => {
  const queue = new RequestQueue(() => 4);
  const jobs = Array.from({ length: 20 }, deferred);
  let running = 0;
  let most = 0;
  const all = jobs.map((job) =>
    queue.run(async () => {
      running += 1;
      most = Math.max(most, running);
      await job.promise;
      running -= 1;
    }),
  );
  for (const job of jobs) {
    await settle();
    job.finish();
  }
  await Promise.all(all);
  assert.equal(most, 4);
});

test("a lower limit holds back what has not begun", async () => {
  let limit = 4;
  const queue = new RequestQueue(() => limit);
  const jobs = Array.from({ length: 6 }, deferred);
  for (const job of jobs) {
    void queue.run(() => job.promise);
  }
  limit = 3;
  jobs[0]?.finish();
  await settle();
  assert.equal(queue.running, 3);
  jobs[1]?.finish();
  await settle();
  assert.equal(queue.running, 3);
  assert.equal(queue.waiting, 1);
});

test("what goes to the front is started before what waits", async () => {
  const queue = new RequestQueue(() => 1);
  const order: string[] = [];
  const first = deferred();
  const note = (name: string) => async () => {
    order.push(name);
  };
  const all = [
    queue.run(() => first.promise),
    queue.run(note("back")),
    queue.run(note("front"), "front"),
  ];
  first.finish();
  await Promise.all(all);
  assert.deepEqual(order, ["front", "back"]);
});

test("a job that fails makes room", async () => {
  const queue = new RequestQueue(() => 1);
  await assert.rejects(queue.run(() => Promise.reject(new Error("broken"))));
  assert.equal(await queue.run(async () => 7), 7);
  await settle();
  assert.equal(queue.running, 0);
});
