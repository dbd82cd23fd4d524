import assert from "node:assert/strict";
import { test } from "node:test";
import { before, begin, FakeRobot, sent, trialText } from "./FakeRobot";

/** The robot takes the settings on trial, one and a half seconds after they were written. */
function onTrial(robot: FakeRobot, seconds = 90): void {
  robot.after(1500, () => {
    robot.values = sent;
    robot.message = trialText(seconds);
  });
}

function goBack(robot: FakeRobot, milliseconds: number): void {
  robot.after(milliseconds, () => {
    robot.values = before;
  });
}

test("a write that the daemon refuses ends at once", async () => {
  const robot = new FakeRobot();
  robot.onWrite = () => "refused";
  const { flow } = begin(robot);
  await flow.start();
  assert.equal(flow.state.end, "notAccepted");
});

test("the text of the run before is no result of this one", async () => {
  const robot = new FakeRobot();
  robot.message = "CONFIRMED: the new settings are kept.\n";
  const { flow, states } = begin(robot);
  robot.after(5000, () => {
    robot.message = "REFUSED: nothing was changed.\n";
  });
  await flow.start();
  assert.equal(flow.state.end, "refused");
  assert.ok(states.filter(({ stage }) => stage === "waiting").length >= 5);
});

test("settings on trial are kept by the same settings once more", async () => {
  const robot = new FakeRobot();
  onTrial(robot);
  const { flow, states } = begin(robot);
  robot.after(10_000, () => void flow.ask("keep"));
  robot.onWrite = (count) => {
    if (count === 2) {
      robot.after(500, () => {
        robot.message = "CONFIRMED: the new settings are kept.\n";
      });
    }
    return "accepted";
  };
  await flow.start();
  assert.equal(flow.state.end, "kept");
  assert.equal(robot.writes.length, 2);
  assert.equal(robot.writes[0], robot.writes[1]);
  const trial = states.find(({ stage }) => stage === "trial");
  assert.equal((trial?.deadline ?? 0) - 1_000_000, 1000 + 90_000);
});

test("settings on trial are taken back by those from before", async () => {
  const robot = new FakeRobot();
  onTrial(robot);
  const { flow } = begin(robot);
  robot.after(10_000, () => void flow.ask("revert"));
  robot.onWrite = (count) => {
    if (count === 2) {
      robot.values = before;
      robot.message = "CONFIRMED: the settings are again those from before the trial.\n";
    }
    return "accepted";
  };
  await flow.start();
  assert.equal(flow.state.end, "reverted");
  assert.match(robot.writes[1] ?? "", /10\.0\.0\.10/);
});

for (const [wish, end] of [
  ["keep", "kept"],
  ["revert", "reverted"],
] as const) {
  test(`a script with words of its own ends a trial: ${end}`, async () => {
    const robot = new FakeRobot();
    const { flow } = begin(robot);
    robot.after(1500, () => {
      robot.values = sent;
      robot.message = "eth0 is up, confirm within 90 s\n";
    });
    robot.after(5000, () => void flow.ask(wish));
    robot.onWrite = (count) => {
      if (count === 2) {
        robot.values = wish === "keep" ? robot.values : before;
        robot.message = "done\n";
      }
      return "accepted";
    };
    await flow.start();
    assert.equal(flow.state.end, end);
  });
}

test("a trial that nobody confirms runs out", async () => {
  const robot = new FakeRobot();
  onTrial(robot, 20);
  goBack(robot, 24_000);
  const { flow, states } = begin(robot);
  await flow.start();
  assert.equal(flow.state.end, "expired");
  assert.ok(states.some(({ stage }) => stage === "expiring"));
});

test("a trial that ended while the robot was out of reach is not taken for a new one", async () => {
  const robot = new FakeRobot();
  const { flow, states } = begin(robot);
  robot.after(1500, () => {
    robot.answersAtOld = false;
  });
  robot.after(93_000, () => {
    robot.answersAtOld = true;
    robot.message = trialText(90);
  });
  await flow.start();
  assert.equal(flow.state.end, "expired");
  assert.ok(states.every(({ stage }) => stage !== "trial"));
});

test("a trial that began while the robot was out of reach never seems longer than it is", async () => {
  const robot = new FakeRobot();
  const { flow, states } = begin(robot);
  robot.after(1500, () => {
    robot.answersAtOld = false;
  });
  robot.after(40_000, () => {
    robot.answersAtOld = true;
    robot.values = sent;
    robot.message = trialText(90);
  });
  await flow.start();
  const trial = states.find(({ stage }) => stage === "trial");
  assert.ok(trial && trial.deadline <= 1_000_000 + 1500 + 90_000);
});

test("new settings that outlive their trial are told apart", async () => {
  const robot = new FakeRobot();
  onTrial(robot, 20);
  const { flow } = begin(robot);
  await flow.start();
  assert.equal(flow.state.end, "unclear");
});

test("a refused confirmation leaves the trial as it is", async () => {
  const robot = new FakeRobot();
  onTrial(robot, 30);
  goBack(robot, 33_000);
  const { flow, states } = begin(robot);
  robot.after(5000, () => void flow.ask("keep"));
  robot.onWrite = (count) => {
    if (count === 2) {
      robot.message = "Another run is at work.\nREFUSED: nothing was changed.\n";
    }
    return "accepted";
  };
  await flow.start();
  assert.ok(
    states.some(
      ({ stage, wish, message }) =>
        stage === "trial" && wish === undefined && message?.includes("REFUSED"),
    ),
  );
  assert.equal(flow.state.end, "expired");
});

test("a confirmation whose answer is lost is seen all the same", async () => {
  const robot = new FakeRobot();
  onTrial(robot);
  const { flow } = begin(robot);
  robot.after(5000, () => void flow.ask("keep"));
  robot.onWrite = (count) => {
    if (count === 2) {
      robot.message = "CONFIRMED: the new settings are kept.\n";
      return "unreachable";
    }
    return "accepted";
  };
  await flow.start();
  assert.equal(flow.state.end, "kept");
});

test("a script that prints the same as the last time is known by its files", async () => {
  const robot = new FakeRobot();
  robot.message = trialText(90);
  onTrial(robot);
  const { flow, states } = begin(robot);
  robot.after(20_000, () => {
    robot.message = "CONFIRMED: the new settings are kept.\n";
  });
  await flow.start();
  const trial = states.find(({ stage }) => stage === "trial");
  assert.equal((trial?.deadline ?? 0) - 1_000_000, 90_000);
  assert.equal(flow.state.end, "kept");
});

test("a script without a rollback says so by its lack", async () => {
  const robot = new FakeRobot();
  robot.after(2000, () => {
    robot.message = "All done.\n";
  });
  const { flow } = begin(robot);
  await flow.start();
  assert.equal(flow.state.end, "noRollback");
});

test("a script that never says anything ends with the countdown", async () => {
  const robot = new FakeRobot();
  const { flow } = begin(robot);
  await flow.start();
  assert.equal(flow.state.end, "silent");
  assert.ok(robot.time - 1_000_000 >= 90_000);
});

test("a robot that is nowhere is waited for until it is back", async () => {
  const robot = new FakeRobot();
  const { flow, states } = begin(robot);
  robot.after(2000, () => {
    robot.answersAtOld = false;
  });
  robot.after(150_000, () => {
    robot.answersAtOld = true;
    robot.message = "The new settings did not come up.\nRESTORED: the old settings are in force.\n";
  });
  await flow.start();
  assert.ok(states.some(({ reach, deadline }) => reach === "nowhere" && deadline < robot.time));
  assert.equal(flow.state.end, "restored");
});

test("a write without an answer may have arrived", async () => {
  const robot = new FakeRobot();
  robot.onWrite = () => "unreachable";
  onTrial(robot);
  goBack(robot, 95_000);
  const { flow } = begin(robot);
  await flow.start();
  assert.equal(flow.state.end, "expired");
});

test("a flow that is stopped says and asks no more", async () => {
  const robot = new FakeRobot();
  const { flow, states } = begin(robot);
  robot.after(3000, () => flow.stop());
  await flow.start();
  assert.ok(states.length < 6);
  assert.equal(flow.state.stage, "waiting");
});
