import assert from "node:assert/strict";
import { test } from "node:test";
import { backgroundQueue, setDriving } from "../../src/data/scheduler";
import { settle } from "../support/fetchStub";

const connections = 6;

for (const [isDriving, most] of [
  [false, 4],
  [true, 3],
] as const) {
  test(`${most} requests are in flight ${isDriving ? "while driving" : "at rest"}, and the others wait`, async () => {
    setDriving(isDriving);
    const ends: (() => void)[] = [];
    const background = Array.from({ length: connections }, () =>
      backgroundQueue.run(() => new Promise<void>((resolve) => ends.push(resolve))),
    );
    await settle();
    assert.equal(ends.length, most);
    ends[0]?.();
    await settle();
    assert.equal(ends.length, most + 1);
    while (ends.length > 0) {
      for (const end of ends.splice(0)) {
        end();
      }
      await settle();
    }
    await Promise.all(background);
  });
}
