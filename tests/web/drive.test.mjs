// Driving from the page, judged by the commands that the simulated robot has received.
import assert from "node:assert/strict";
import { after, afterEach, before, beforeEach, test } from "node:test";
import { complaintsOf, openBrowser, openPage } from "./support/browser.mjs";
import { deadline, waitFor } from "./support/deadlines.mjs";
import { goTo, logIn, pushStickAhead, unlockDrive } from "./support/people.mjs";
import { RunningRobot } from "./support/programs.mjs";

// The daemon's watchdog stops the robot when it hears nothing for so long.
const watchdogMs = 400;
// From the moment that a person lets go, a page is hidden or a link breaks.
const stopMs = 600;
const quietMs = 1000;
// The daemon's watchdog sends one by itself, which must not pass for the page's.
const pageZeros = 2;

let robot;
let browser;
let page;

before(async () => {
  browser = await openBrowser();
});
after(() => browser?.close());
beforeEach(async () => {
  robot = await RunningRobot.start({ slowStatusSeconds: 0.4 });
  page = await openPage(browser, robot);
  await logIn(page, "operator");
});
afterEach(async () => {
  await page.context().close();
  await robot.close();
});

const velocities = () => robot.commands().filter(({ method }) => method === "omniDrive.setVelocity");
const isZero = ({ params: { vx, vy, omega } }) => vx === 0 && vy === 0 && omega === 0;
const zerosAfterMoves = (moment) => {
  const later = velocities().filter(({ timeMs }) => timeMs >= moment);
  return later.slice(later.findLastIndex((command) => !isZero(command)) + 1);
};
const sleep = (ms) => new Promise((resolve) => setTimeout(resolve, ms));
// The simulated robot's clock is the machine's monotonic one, as is this.
const now = () => Number(process.hrtime.bigint()) / 1e6;

async function driveAWhile() {
  await unlockDrive(page);
  await pushStickAhead(page);
  await waitFor("the robot to move", () => velocities().some((command) => command.params.vx > 0.05));
}

/**
 * After the moment the robot stops in time and for good. A move that the page called off may reach the
 * daemon behind the first zero, on a connection of its own; therefore the page repeats it.
 */
async function assertStopped(moment, { zeros = pageZeros } = {}) {
  await waitFor("the zeros", () => zerosAfterMoves(moment).length >= zeros);
  await sleep(quietMs);
  const [zero] = zerosAfterMoves(moment);
  assert.ok(zero.timeMs - moment <= deadline(stopMs / 2), `the zero came after ${zero.timeMs - moment} ms`);
  const later = velocities().filter(({ timeMs }) => timeMs >= moment);
  const firstZero = later.findIndex(isZero);
  const overtaken = later.slice(firstZero).filter((command) => !isZero(command));
  assert.ok(overtaken.length <= 1, JSON.stringify(overtaken));
  const count = velocities().length;
  await sleep(quietMs);
  assert.equal(velocities().length, count, "the page goes on sending");
}

test("ten seconds of driving have no gap, beside slow requests and a second tab", async () => {
  const second = await openPage(browser, robot, { context: page.context(), hash: "#/services" });
  await page.bringToFront();
  let isDriving = true;
  const slow = Array.from({ length: 20 }, async () => {
    while (isDriving) await (await fetch(`${robot.address}data/servicestatus/x`)).text();
  });
  await driveAWhile();
  const begin = now();
  const { x, y, width, height } = await page.locator("[data-stick=move]").boundingBox();
  while (now() - begin < 10_000) {
    const turn = (now() - begin) / 1000;
    await page.mouse.move(x + width * (0.5 + 0.3 * Math.sin(turn)), y + height * 0.2);
    await sleep(50);
  }
  const end = now();
  await page.mouse.up();
  isDriving = false;
  await Promise.all(slow);
  const times = velocities().map(({ timeMs }) => timeMs)
    .filter((time) => time >= begin - watchdogMs && time <= end);
  const gaps = times.slice(1).map((time, index) => time - times[index]);
  assert.ok(times.length > 50, `${times.length} commands`);
  assert.ok(Math.max(...gaps) <= watchdogMs, `the longest gap was ${Math.max(...gaps)} ms`);
  await assertStopped(end);
  assert.deepEqual([...complaintsOf(page), ...complaintsOf(second)], []);
});

test("letting go stops the robot", async () => {
  await driveAWhile();
  const moment = now();
  await page.mouse.up();
  await assertStopped(moment);
  await page.getByText("Armed", { exact: true }).waitFor();
});

test("the stop button stops the robot and locks the drive", async () => {
  await driveAWhile();
  const moment = now();
  await page.keyboard.press("Escape");
  await assertStopped(moment);
  await page.getByText("Locked", { exact: true }).waitFor();
  await page.mouse.up();
});

test("a hidden page stops the robot", async () => {
  await driveAWhile();
  const moment = now();
  await page.evaluate(() => {
    Object.defineProperty(document, "visibilityState", { value: "hidden", configurable: true });
    Object.defineProperty(document, "hidden", { value: true, configurable: true });
    document.dispatchEvent(new Event("visibilitychange"));
  });
  await assertStopped(moment);
  await page.mouse.up();
});

test("another window in front stops the robot", async () => {
  await driveAWhile();
  const moment = now();
  await page.evaluate(() => window.dispatchEvent(new Event("blur")));
  await assertStopped(moment);
  await page.getByText("Locked", { exact: true }).waitFor();
  await page.mouse.up();
});

test("another page of the interface stops the robot", async () => {
  await driveAWhile();
  const moment = now();
  await page.evaluate(() => { location.hash = "#/about"; });
  await assertStopped(moment);
  await page.mouse.up();
});

test("a closed tab stops the robot", async () => {
  await driveAWhile();
  const moment = now();
  await page.close();
  await assertStopped(moment, { zeros: 1 });
});

test("a link that breaks stops the robot and locks the drive", async () => {
  await driveAWhile();
  const moment = now();
  await page.context().setOffline(true);
  await assertStopped(moment, { zeros: 1 });
  await page.getByText("Locked", { exact: true }).waitFor();
  await page.mouse.up();
  await page.context().setOffline(false);
});

test("a daemon that dies is told and locks the drive, and its return needs a login", async () => {
  await driveAWhile();
  await robot.killDaemon();
  const killed = now();
  await page.getByText(/No connection to robot since/).waitFor({ timeout: deadline(3000) });
  await page.getByText("Locked", { exact: true }).waitFor({ timeout: deadline(3000) });
  assert.ok(now() - killed <= deadline(3000));
  await page.mouse.up();
  await robot.startDaemon();
  await page.getByText(/Session ended/).first().waitFor({ timeout: deadline(10_000) });
  assert.equal(await page.getByText(/No connection to robot since/).count(), 0);
});

async function driveByKeyboard() {
  await unlockDrive(page);
  await page.evaluate(() => document.activeElement?.blur());
  await page.keyboard.down("Shift");
  await page.keyboard.down("w");
  await waitFor("the robot to move", () => velocities().some(({ params }) => params.vx > 0.05));
}

test("the keyboard drives while Shift is held", async () => {
  await driveByKeyboard();
  const moment = now();
  await page.keyboard.up("Shift");
  await assertStopped(moment);
});

const takers = {
  "a dialog": () => page.getByTitle("Log in or out").evaluate((each) => each.click()),
  "a control": () => page.getByLabel("Unlock driving").focus(),
};
for (const [taker, take] of Object.entries(takers)) {
  test(`the keyboard stops the robot when ${taker} takes the focus`, async () => {
    await driveByKeyboard();
    const moment = now();
    await take();
    await assertStopped(moment);
  });
}

test("the keyboard drives after a speed was chosen with the mouse", async () => {
  await unlockDrive(page);
  await page.getByText("10 %", { exact: true }).click();
  await page.keyboard.press("Shift+w", { delay: 500 });
  await waitFor("the robot to move", () => velocities().some(({ params }) => params.vx > 0.03));
  // A tenth of the highest speed, in single precision.
  assert.ok(velocities().every(({ params }) => params.vx < 0.051), "faster than was chosen");
});

/** What the browser says of a gamepad whose left stick is so far ahead. */
function connectGamepad(ahead, isShoulderPressed) {
  return page.evaluate(([y, pressed]) => {
    const buttons = Array.from({ length: 17 }, (_, index) => ({ pressed: index === 5 && pressed }));
    const pad = { index: 0, id: "A pad", connected: true, mapping: "standard", axes: [0, -y, 0, 0], buttons };
    navigator.getGamepads = () => [pad, null];
  }, [ahead, isShoulderPressed]);
}

test("a gamepad drives while a shoulder button is held, and its loss stops and locks", async () => {
  await connectGamepad(0, false);
  await unlockDrive(page);
  await connectGamepad(1, false);
  await sleep(quietMs);
  assert.deepEqual(velocities(), [], "the stick alone moved the robot");
  await connectGamepad(1, true);
  await waitFor("the robot to move", () => velocities().some(({ params }) => params.vx > 0.1));
  const letGo = now();
  await connectGamepad(1, false);
  await assertStopped(letGo);
  await connectGamepad(1, true);
  await waitFor("the robot to move again", () => !isZero(velocities().at(-1)));
  const lost = now();
  await page.evaluate(() => { navigator.getGamepads = () => [null, null]; });
  await assertStopped(lost);
  await page.getByText("Locked: the gamepad is gone.").waitFor();
});

test("one tab takes the driving over from another", async () => {
  const second = await openPage(browser, robot, { context: page.context(), hash: "#/drive" });
  await logIn(second, "operator");
  await page.bringToFront();
  await driveAWhile();
  await second.bringToFront();
  const moment = now();
  await second.getByRole("button", { name: "Take over" }).click();
  await second.getByText("Armed", { exact: true }).waitFor();
  await assertStopped(moment);
  await page.getByText("Locked", { exact: true }).waitFor();
  await page.getByText("Another tab of this browser took over or stopped the robot.").waitFor();
  await page.mouse.up();
  await pushStickAhead(second);
  await second.mouse.up();
  assert.deepEqual([...complaintsOf(page), ...complaintsOf(second)], []);
});

// Widths and heights of phones, from the smallest on.
const heldAcross = [[640, 360], [667, 375], [740, 360], [844, 390]];

test("a phone that is held across shows both sticks whole, with nothing over them", async () => {
  await goTo(page, "drive");
  for (const [width, height] of heldAcross) {
    await page.setViewportSize({ width, height });
    await page.evaluate(() => scrollTo(0, 0));
    const hidden = await page.locator("[data-stick]").evaluateAll((sticks) => sticks.flatMap((stick) => {
      const { left, top, bottom, width: wide } = stick.getBoundingClientRect();
      const under = document.elementFromPoint(left + wide / 2, bottom - 4);
      return top >= 0 && stick.contains(under) ? [] : [[top, bottom]];
    }));
    assert.deepEqual(hidden, [], `${width} by ${height}`);
  }
});

test("no message lies on a stick or on the stop button", async () => {
  const boxes = (selector) => page.locator(selector).evaluateAll((elements) => elements.map((element) => {
    const { left, top, right, bottom } = element.getBoundingClientRect();
    return { left, top, right, bottom };
  }));
  const meet = (one, other) => one.left < other.right && other.left < one.right
    && one.top < other.bottom && other.top < one.bottom;
  await goTo(page, "drive");
  for (const [width, height] of [[320, 640], ...heldAcross, [768, 1024], [1024, 768], [1280, 800]]) {
    await page.setViewportSize({ width, height });
    const kept = [...await boxes("[data-stick]"), ...await boxes(".stop > button")];
    const messages = await boxes(".toast");
    assert.ok(kept.length === 3 && messages.length > 0, `${kept.length}, ${messages.length}`);
    const covered = kept.filter((box) => messages.some((message) => meet(box, message)));
    assert.deepEqual(covered, [], `${width} by ${height}`);
  }
});

test("a step moves the robot for a moment", async () => {
  await unlockDrive(page);
  await page.getByText("Steps", { exact: true }).click();
  await page.getByRole("button", { name: "Turn left a little" }).click();
  await waitFor("a turn", () => velocities().some(({ params }) => params.omega > 0));
  const begin = velocities().find(({ params }) => params.omega > 0).timeMs;
  await assertStopped(begin + 1);
});

test("a page that is open but does not drive leaves the robot to programs", async () => {
  await unlockDrive(page);
  const count = velocities().length;
  await sleep(quietMs);
  await goTo(page, "overview");
  await sleep(quietMs);
  assert.equal(velocities().length, count);
});
