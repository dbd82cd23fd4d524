import assert from "node:assert/strict";
import { test } from "node:test";
import { ElsewhereWatch } from "../../src/drive/elsewhere";
import { FramePace, frameProblem } from "../../src/drive/framePace";
import { robotLimits } from "../../src/drive/robotLimits";

const moving = { vx: 0.1, vy: 0, omega: 0 };
const still = { vx: 0.01, vy: 0, omega: 0 };

test("a robot that moves while nobody drives it here is noticed", () => {
  const watch = new ElsewhereWatch();
  assert.equal(watch.moves(still, false, 0), false);
  assert.equal(watch.moves(moving, false, 0), true);
  assert.equal(watch.moves({ vx: 0, vy: 0, omega: -0.5 }, false, 0), true);
  assert.equal(watch.moves(undefined, false, 0), false);
});

test("rolling out after driving is no strange movement", () => {
  const watch = new ElsewhereWatch();
  assert.equal(watch.moves(moving, true, 1000), false);
  assert.equal(watch.moves(moving, false, 1900), false);
  assert.equal(watch.moves(moving, false, 2100), true);
});

test("refused pictures are told apart by their words", () => {
  assert.equal(frameProblem("No camera connected"), "waiting");
  assert.equal(frameProblem("No jpeg image available"), "noJpeg");
  assert.equal(frameProblem("INTERNAL ERROR "), "other");
});

test("the pace settles where the camera has a new picture each time", () => {
  const pace = new FramePace();
  const cameraMs = 100;
  let time = 0;
  let nextPicture = 0;
  let refused = 0;
  for (let request = 0; request < 500; request += 1) {
    if (time >= nextPicture) {
      nextPicture = (Math.floor(time / cameraMs) + 1) * cameraMs;
      time += pace.afterFrame();
    } else {
      refused += request > 50 ? 1 : 0;
      time += pace.afterProblem("waiting");
    }
  }
  assert.ok(refused < 60, `${refused} of 450 in vain`);
});

test("a camera that is away is asked ever more seldom", () => {
  const pace = new FramePace();
  const waits = Array.from({ length: 30 }, () => pace.afterProblem("waiting"));
  assert.equal(waits[0], 250);
  assert.equal(waits.at(-1), 1000);
  assert.equal(pace.afterProblem("unreachable"), 1000);
});

function leaf(group: string, name: string, value: string) {
  return { id: "1", file: "/etc/x.conf", group, name, value, type: "input" };
}

test("limits come from the drive's group of the configuration", () => {
  const group = (vxmax: string) => ({
    name: "Omnidrive",
    _children: [
      leaf("Omnidrive", "vxmax", vxmax),
      leaf("Omnidrive", "vymax", "0.4"),
      leaf("Omnidrive", "omegamax", "2"),
    ],
  });
  const tree = (vxmax: string) => [
    { name: "/etc/x.conf", _children: [leaf("", "vxmax", "9"), group(vxmax)] },
  ];
  assert.deepEqual(robotLimits(tree("0.5")), { vx: 0.5, vy: 0.4, omega: 2 });
  assert.equal(robotLimits(tree("fast")), undefined);
  for (const wrong of [undefined, null, 1, "x", {}, [], [null], [{ _children: 1 }]]) {
    assert.equal(robotLimits(wrong), undefined);
  }
});
