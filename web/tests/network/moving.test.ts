import assert from "node:assert/strict";
import { test } from "node:test";
import { shouldMove } from "../../src/network/flowState";
import { before, begin, FakeRobot, sent, trialText } from "./FakeRobot";

const newOrigin = "http://127.0.0.2:8080";

test("the page moves when the robot answers at its new address only", async () => {
  const robot = new FakeRobot();
  robot.after(3000, () => {
    robot.answersAtOld = false;
  });
  robot.after(8000, () => {
    robot.answersAtNew = true;
  });
  const { flow, states } = begin(robot, { newOrigin });
  await flow.start();
  assert.ok(states.some(({ reach }) => reach === "nowhere"));
  assert.equal(flow.state.reach, "new");
  assert.ok(shouldMove(flow.plan, flow.state));
});

test("while the old address answers too, the page waits for the script", async () => {
  const robot = new FakeRobot();
  robot.answersAtNew = true;
  robot.after(5000, () => {
    robot.message = trialText(90);
    robot.values = sent;
  });
  const { flow, states } = begin(robot, { newOrigin });
  await flow.start();
  assert.ok(states.some(({ stage, reach }) => stage === "waiting" && reach === "both"));
  assert.equal(flow.state.stage, "trial");
  assert.ok(shouldMove(flow.plan, flow.state));
});

test("a page whose settings were refused stays, whoever answers at the new address", async () => {
  const robot = new FakeRobot();
  robot.answersAtNew = true;
  robot.after(2000, () => {
    robot.message = "REFUSED: nothing was changed.\n";
  });
  const { flow } = begin(robot, { newOrigin });
  await flow.start();
  assert.equal(flow.state.end, "refused");
  assert.ok(!shouldMove(flow.plan, flow.state));
});

test("without a rollback the page still goes where the robot went", async () => {
  const robot = new FakeRobot();
  robot.after(2000, () => {
    robot.message = "Done.\n";
  });
  robot.after(9000, () => {
    robot.answersAtNew = true;
  });
  const { flow } = begin(robot, { newOrigin });
  await flow.start();
  assert.equal(flow.state.end, "noRollback");
  assert.ok(shouldMove(flow.plan, flow.state));
});

test("the page at the new address goes on with the trial that it was handed", async () => {
  const robot = new FakeRobot();
  robot.message = trialText(90);
  robot.values = sent;
  const { flow } = begin(robot, { oldMessage: undefined });
  robot.after(5000, () => void flow.ask("keep"));
  robot.onWrite = () => {
    robot.message = "CONFIRMED: the new settings are kept.\n";
    return "accepted";
  };
  await flow.resume(robot.time + 40_000);
  assert.equal(flow.state.end, "kept");
  assert.equal(flow.state.deadline, 1_040_000);
});

test("a trial that was handed over runs out like any other", async () => {
  const robot = new FakeRobot();
  robot.message = trialText(90);
  robot.values = sent;
  robot.after(42_000, () => {
    robot.values = before;
  });
  const { flow } = begin(robot, { oldMessage: undefined });
  await flow.resume(robot.time + 40_000);
  assert.equal(flow.state.end, "expired");
});

test("a trial that is over already when it is handed over ends at once", async () => {
  const robot = new FakeRobot();
  robot.message = "CONFIRMED: the new settings are kept.\n";
  robot.values = sent;
  const { flow } = begin(robot, { oldMessage: undefined });
  await flow.resume(robot.time + 40_000);
  assert.equal(flow.state.end, "kept");
});

test("a script that hasn't ended before the move is waited for after it", async () => {
  const robot = new FakeRobot();
  robot.message = "CONFIRMED: the new settings are kept.\n";
  robot.values = sent;
  robot.after(5000, () => {
    robot.message = trialText(90);
  });
  robot.after(9000, () => void flow.ask("keep"));
  robot.onWrite = () => {
    robot.message = "CONFIRMED: the new settings are kept.\n";
    return "accepted";
  };
  const { flow, states } = begin(robot);
  await flow.resume(undefined);
  assert.ok(states.filter(({ stage }) => stage === "waiting").length > 3);
  assert.equal(flow.state.end, "kept");
});
