import assert from "node:assert/strict";
import { test } from "node:test";
import { backgroundQueue, besideQueue, setDriving } from "../../src/data/scheduler";
import { settle } from "../support/fetchStub";

const connections = 6;
const zerosOfAStop = 2;

/** How many background requests are started while as many others never end. */
async function startedBeside(count: number): Promise<number> {
  const ends: (() => void)[] = [];
  const job = () => new Promise<void>((resolve) => ends.push(resolve));
  const others = Array.from({ length: count }, () => besideQueue(job));
  let started = 0;
  const background = Array.from({ length: connections }, () =>
    backgroundQueue.run(() => {
      started += 1;
      return job();
    }),
  );
  await settle();
  const result = started;
  while (started < connections || ends.length > 0) {
    for (const end of ends.splice(0)) {
      end();
    }
    await settle();
  }
  await Promise.all([...others, ...background]);
  return result;
}

for (const isDriving of [false, true]) {
  for (const beside of [0, 1, 2]) {
    test(`a stop finds connections ${isDriving ? "while driving" : "at rest"} beside ${beside} others`, async () => {
      setDriving(isDriving);
      const started = await startedBeside(beside);
      assert.ok(started + beside + zerosOfAStop <= connections, `${started} were started`);
      assert.ok(started >= 2, `${started} were started`);
    });
  }
}
