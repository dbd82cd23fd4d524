import assert from "node:assert/strict";
import { test } from "node:test";
import { DriveControl } from "../../src/drive/driveControl";
import { isStandstill } from "../../src/drive/velocity";
import { FakeClock, FakeRobot } from "./fakes";

/** The same numbers from 0 to 1 in each run. */
function randomNumbers(seed: number): () => number {
  let state = seed;
  return () => {
    state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
    return state / 2 ** 32;
  };
}

for (let seed = 1; seed <= 20; seed += 1) {
  test(`whatever hands and link do, the robot moves only while it is held (${seed})`, async () => {
    const random = randomNumbers(seed);
    const clock = new FakeClock();
    const robot = new FakeRobot(clock);
    const maxima = { vx: 0.5, vy: 0.3, omega: 1 };
    const drive = new DriveControl({
      transport: robot.transport,
      clock,
      limits: () => ({ maxima, scale: 1 }),
      refused: () => {},
      stopBehind: () => {},
    });
    let isHeld = false;
    const actions = [
      () => drive.unlock(),
      () => drive.unlock(),
      () => {
        isHeld = true;
        const part = () => random() * 2 - 1;
        drive.setInput("stick", { isHeld, deflection: [part(), part(), part()] });
      },
      () => {
        isHeld = false;
        drive.releaseInput("stick");
      },
      () => drive.lock("blur"),
      () => drive.stop(),
      () => {
        robot.delayMs = random() * 350;
      },
      () => {
        robot.isDeaf = random() < 0.3;
      },
      () => {
        robot.answer = random() < 0.8 ? "accepted" : random() < 0.5 ? "refused" : "unreachable";
      },
    ];
    for (let round = 0; round < 300; round += 1) {
      actions[Math.floor(random() * actions.length)]?.();
      assert.ok(drive.model.value.state !== "driving" || isHeld);
      const sentBefore = robot.sent.length;
      const wasDriving = drive.model.value.state === "driving";
      await clock.pass(random() * 200);
      if (!wasDriving && !isHeld) {
        assert.ok(robot.velocities.slice(sentBefore).every(isStandstill));
      }
    }
    drive.releaseInput("stick");
    await clock.pass(2500);
    const sent = robot.sent.length;
    await clock.pass(10_000);
    assert.equal(robot.sent.length, sent);
    const last = robot.velocities.at(-1);
    assert.ok(last === undefined || isStandstill(last));
    assert.ok(robot.mostUnderway <= 2);
    for (const [vx, vy, omega] of robot.velocities) {
      assert.ok(Math.abs(vx) < maxima.vx && Math.abs(vy) < maxima.vy);
      assert.ok(Math.abs(omega) < maxima.omega);
    }
  });
}
