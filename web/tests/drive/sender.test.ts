import assert from "node:assert/strict";
import { test } from "node:test";
import { Sender } from "../../src/drive/sender";
import { standstill, type Velocity } from "../../src/drive/velocity";
import { FakeClock, FakeRobot } from "./fakes";

function setUp() {
  const clock = new FakeClock();
  const robot = new FakeRobot(clock);
  const heard: string[] = [];
  const wanted = { velocity: [0.1, 0, 0] as Velocity };
  const sender = new Sender(robot.transport, clock, {
    velocity: () => wanted.velocity,
    roundTrip: () => {},
    trouble: (kind) => {
      heard.push(kind);
      sender.stop();
    },
    stopped: (isConfirmed) => heard.push(isConfirmed ? "confirmed" : "unconfirmed"),
  });
  return { clock, robot, heard, wanted, sender };
}

test("sends at once and then every 100 ms", async () => {
  const { clock, robot, sender } = setUp();
  sender.start();
  await clock.pass(450);
  assert.deepEqual(robot.times, [0, 100, 200, 300, 400]);
});

test("has at most one move under way and then sends the newest value", async () => {
  const { clock, robot, wanted, sender } = setUp();
  robot.delayMs = 250;
  sender.start();
  for (const vx of [0.2, 0.3, 0.4]) {
    await clock.pass(60);
    wanted.velocity = [vx, 0, 0];
  }
  await clock.pass(100);
  assert.equal(robot.mostUnderway, 1);
  assert.deepEqual(robot.velocities, [
    [0.1, 0, 0],
    [0.4, 0, 0],
  ]);
  assert.deepEqual(robot.times, [0, 250]);
});

test("gives up after 300 ms without an acknowledgement", async () => {
  const { clock, robot, heard, sender } = setUp();
  sender.start();
  await clock.pass(50);
  robot.isDeaf = true;
  await clock.pass(254);
  assert.deepEqual(heard, []);
  await clock.pass(1);
  assert.deepEqual(heard, ["slow"]);
  assert.deepEqual(robot.sent.at(-1)?.velocity, standstill);
});

test("tries again when a request fails at once", async () => {
  const { clock, robot, heard, sender } = setUp();
  robot.answer = "unreachable";
  sender.start();
  await clock.pass(150);
  robot.answer = "accepted";
  await clock.pass(500);
  assert.deepEqual(heard, []);
  assert.equal(robot.sent.length, 7);
});

test("a stop calls off a move that stays away, sends two zeros and is silent then", async () => {
  const { clock, robot, heard, sender } = setUp();
  robot.delayMs = 120;
  sender.start();
  await clock.pass(170);
  sender.stop();
  assert.equal(robot.sent[1]?.isAborted, true);
  robot.delayMs = 5;
  await clock.pass(5000);
  assert.deepEqual(robot.times, [0, 120, 170, 270]);
  assert.deepEqual(robot.velocities.slice(2), [standstill, standstill]);
  assert.deepEqual(heard, ["confirmed"]);
  assert.equal(sender.isSilent, true);
});

test("a stop lets a move that was sent a moment ago arrive first", async () => {
  const { clock, robot, heard, sender } = setUp();
  sender.start();
  await clock.pass(101);
  sender.stop();
  await clock.pass(5000);
  assert.equal(robot.sent[1]?.isAborted, false);
  assert.deepEqual(robot.times, [0, 100, 105, 205]);
  assert.deepEqual(robot.velocities.slice(2), [standstill, standstill]);
  assert.deepEqual(heard, ["confirmed"]);
});

test("a stop waits no longer than 50 ms for a move", async () => {
  const { clock, robot, sender } = setUp();
  robot.delayMs = 90;
  sender.start();
  await clock.pass(110);
  sender.stop();
  assert.deepEqual(robot.times, [0, 100]);
  await clock.pass(40);
  assert.deepEqual(robot.times, [0, 100, 150]);
  assert.equal(robot.sent[1]?.isAborted, true);
});

test("an answer to the first zero alone confirms nothing", async () => {
  const { clock, robot, heard, sender } = setUp();
  sender.stop();
  await clock.pass(50);
  robot.isDeaf = true;
  await clock.pass(1000);
  assert.deepEqual(heard, []);
});

test("a stop on a slow link is confirmed when the answer to the second zero comes", async () => {
  const { clock, robot, heard, sender } = setUp();
  robot.delayMs = 450;
  sender.stop();
  await clock.pass(549);
  assert.deepEqual(heard, []);
  await clock.pass(1);
  assert.deepEqual(heard, ["confirmed"]);
  assert.equal(robot.mostUnderway, 2);
});

test("a stop without an answer ends after two seconds, unconfirmed", async () => {
  const { clock, robot, heard, sender } = setUp();
  robot.answer = "unreachable";
  sender.stop();
  await clock.pass(1999);
  assert.deepEqual(heard, []);
  await clock.pass(1);
  assert.deepEqual(heard, ["unconfirmed"]);
  assert.equal(robot.sent.length, 20);
  await clock.pass(5000);
  assert.equal(robot.sent.length, 20);
});

test("a refused stop is repeated until it is accepted", async () => {
  const { clock, robot, heard, sender } = setUp();
  robot.answer = "refused";
  sender.stop();
  await clock.pass(650);
  assert.deepEqual(heard, []);
  robot.answer = "accepted";
  await clock.pass(5000);
  assert.deepEqual(heard, ["confirmed"]);
  assert.equal(robot.sent.length, 8);
});

test("a stop that is always refused ends after two seconds, unconfirmed", async () => {
  const { clock, robot, heard, sender } = setUp();
  robot.answer = "refused";
  sender.stop();
  await clock.pass(5000);
  assert.deepEqual(heard, ["unconfirmed"]);
  assert.equal(robot.sent.length, 20);
});

test("a refused move is told once and ends in a stop", async () => {
  const { clock, robot, heard, sender } = setUp();
  robot.answer = "refused";
  sender.start();
  await clock.pass(6);
  robot.answer = "accepted";
  await clock.pass(1000);
  assert.deepEqual(heard, ["refused", "confirmed"]);
});

test("a second stop while one is under way changes nothing", async () => {
  const { clock, robot, sender } = setUp();
  sender.stop();
  await clock.pass(50);
  sender.stop();
  await clock.pass(5000);
  assert.deepEqual(robot.times, [0, 100]);
});
