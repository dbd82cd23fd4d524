import assert from "node:assert/strict";
import { test } from "node:test";
import { effect } from "@preact/signals";
import { DriveControl } from "../../src/drive/driveControl";
import { atRest, type InputReading } from "../../src/drive/inputs";
import { standstill } from "../../src/drive/velocity";
import { FakeClock, FakeRobot } from "./fakes";

const ahead: InputReading = { isHeld: true, deflection: [1, 0, 0] };

function setUp() {
  const clock = new FakeClock();
  const robot = new FakeRobot(clock);
  const heard: string[] = [];
  const chosen = { maxima: { vx: 0.5, vy: 0.5, omega: 1 }, scale: 1 };
  const drive = new DriveControl({
    transport: robot.transport,
    clock,
    limits: () => chosen,
    refused: () => heard.push("refused"),
    stopBehind: () => heard.push("stopBehind"),
  });
  const state = () => {
    const { state, reason } = drive.model.value;
    return reason === undefined ? state : `${state}: ${reason}`;
  };
  return { clock, robot, heard, chosen, drive, state };
}

test("a command goes out every 100 ms, up a ramp, and never reaches the limit itself", async () => {
  const { clock, robot, drive } = setUp();
  drive.unlock();
  drive.setInput("stick", ahead);
  await clock.pass(450);
  assert.deepEqual(robot.times, [0, 100, 200, 300, 400]);
  assert.deepEqual(
    robot.velocities.map(([vx]) => vx),
    [0.166, 0.332, 0.498, 0.499, 0.499],
  );
});

test("letting go ends in zeros, then silence", async () => {
  const { clock, robot, drive, state } = setUp();
  drive.unlock();
  drive.setInput("stick", ahead);
  await clock.pass(1050);
  robot.forget();
  drive.releaseInput("stick");
  assert.equal(drive.stopOutcome.value, "stopping");
  await clock.pass(10_000);
  assert.deepEqual(robot.velocities, [standstill, standstill]);
  assert.deepEqual(robot.times, [1050, 1150]);
  assert.equal(state(), "armed");
  assert.equal(drive.stopOutcome.value, "idle");
});

test("armed and locked, nothing is sent", async () => {
  const { clock, robot, drive } = setUp();
  await clock.pass(1000);
  drive.unlock();
  await clock.pass(1000);
  drive.lock("blur");
  await clock.pass(1000);
  assert.deepEqual(robot.sent, []);
});

test("two sticks drive together, and one of them goes on alone", async () => {
  const { clock, robot, drive, state } = setUp();
  drive.unlock();
  drive.setInput("stick", ahead);
  drive.setInput("turn", { isHeld: true, deflection: [0, 0, -1] });
  await clock.pass(350);
  assert.deepEqual(robot.velocities.at(-1), [0.499, 0, -0.999]);
  drive.releaseInput("stick");
  await clock.pass(100);
  assert.deepEqual(robot.velocities.at(-1), [0, 0, -0.999]);
  assert.equal(state(), "driving");
});

test("a silent link stops and locks", async () => {
  const { clock, robot, drive, state } = setUp();
  drive.unlock();
  drive.setInput("stick", ahead);
  await clock.pass(250);
  robot.isDeaf = true;
  await clock.pass(300);
  assert.equal(state(), "stopping: slow");
  await clock.pass(2000);
  assert.equal(state(), "locked: slow");
  assert.equal(drive.stopOutcome.value, "unconfirmed");
  drive.unlock();
  assert.equal(state(), "locked: notNeutral");
});

test("a slow link halves the speed", async () => {
  const { clock, robot, drive } = setUp();
  robot.delayMs = 200;
  drive.unlock();
  drive.setInput("stick", ahead);
  await clock.pass(2000);
  assert.equal(drive.isLinkSlow.value, true);
  assert.deepEqual(robot.velocities.at(-1), [0.25, 0, 0]);
});

test("a refusal stops, locks and is told", async () => {
  const { clock, robot, heard, drive, state } = setUp();
  robot.answer = "refused";
  drive.unlock();
  drive.setInput("stick", ahead);
  await clock.pass(6);
  robot.answer = "accepted";
  await clock.pass(500);
  assert.deepEqual(heard, ["refused"]);
  assert.equal(state(), "locked: limits");
});

test("the stop button works from any state and locks", async () => {
  const { clock, robot, drive, state } = setUp();
  drive.stop();
  await clock.pass(500);
  assert.deepEqual(robot.velocities, [standstill, standstill]);
  assert.equal(state(), "locked: stop");
  drive.unlock();
  drive.setInput("stick", ahead);
  await clock.pass(50);
  drive.stop();
  await clock.pass(500);
  assert.equal(state(), "locked: stop");
});

test("leaving while driving leaves a stop behind, leaving at rest doesn't", async () => {
  const { clock, heard, drive } = setUp();
  drive.leave();
  assert.deepEqual(heard, []);
  drive.unlock();
  drive.setInput("stick", ahead);
  await clock.pass(50);
  drive.leave();
  assert.deepEqual(heard, ["stopBehind"]);
});

test("a step moves slowly for 300 ms", async () => {
  const { clock, robot, drive, state } = setUp();
  drive.step([1, 0, 0]);
  await clock.pass(500);
  assert.deepEqual(robot.sent, []);
  drive.unlock();
  drive.step([1, 0, 0]);
  await clock.pass(2000);
  assert.deepEqual(robot.velocities, [
    [0.1, 0, 0],
    [0.1, 0, 0],
    [0.1, 0, 0],
    standstill,
    standstill,
  ]);
  assert.equal(state(), "armed");
});

test("a control that is grabbed again while the stop is under way drives after it", async () => {
  const { clock, robot, drive, state } = setUp();
  drive.unlock();
  drive.setInput("stick", ahead);
  await clock.pass(50);
  drive.setInput("stick", atRest);
  await clock.pass(20);
  drive.setInput("stick", ahead);
  await clock.pass(50);
  assert.equal(state(), "stopping");
  await clock.pass(100);
  assert.equal(state(), "driving");
  assert.deepEqual(robot.velocities.slice(1, 3), [standstill, standstill]);
});

test("who watches and fails can't keep a stop from going out", async () => {
  const { clock, robot, drive, state } = setUp();
  drive.unlock();
  drive.setInput("stick", ahead);
  await clock.pass(50);
  robot.forget();
  effect(() => {
    if (drive.model.value.state === "stopping") {
      throw new Error("watcher");
    }
  });
  assert.throws(() => drive.releaseInput("stick"), /watcher/);
  await clock.pass(1000);
  assert.deepEqual(robot.velocities, [standstill, standstill]);
  assert.equal(state(), "armed");
});
