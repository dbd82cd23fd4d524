// Driving over links that are slow, uneven or stuck.
import assert from "node:assert/strict";
import { after, afterEach, before, beforeEach, test } from "node:test";
import { BadLink } from "./support/badLink.mjs";
import { complaintsOf, openBrowser, openPage } from "./support/browser.mjs";
import { waitFor } from "./support/deadlines.mjs";
import { logIn, pushStickAhead, unlockDrive } from "./support/people.mjs";
import { RunningRobot } from "./support/programs.mjs";

// The highest speed ahead is 0.5 m/s, of which a quarter is chosen at first.
const quarterSpeed = 0.125;
// A stop from the page, or else the daemon's watchdog and its tick, with some room.
const movementMs = 1000;

let browser;
let robot;
let link;
let page;

before(async () => {
  browser = await openBrowser();
});
after(() => browser?.close());
beforeEach(async () => {
  robot = await RunningRobot.start();
  link = await BadLink.to(robot.port);
  page = await openPage(browser, link);
  await logIn(page, "operator");
});
afterEach(async () => {
  await page.context().close();
  link.close();
  await robot.close();
});

const velocities = () => robot.commands().filter(({ method }) => method === "omniDrive.setVelocity");
const isMove = ({ params: { vx, vy, omega } }) => vx !== 0 || vy !== 0 || omega !== 0;
const sleep = (ms) => new Promise((resolve) => setTimeout(resolve, ms));

// A busy machine may make the link too slow for any driving, which locks the page: then once more.
async function driveSlowly() {
  await unlockDrive(page);
  await pushStickAhead(page);
  await page.getByText("Slow link: half speed").waitFor({ timeout: 5000 });
  const found = velocities().length;
  await waitFor("a steady speed", () => velocities().slice(found).filter(isMove).length > 12, 2500);
  return velocities().slice(found + 6).map(({ params }) => Math.hypot(params.vx, params.vy));
}

test("a slow link drives at half the speed, and says so", async () => {
  link.delayMs = () => 78;
  let speeds;
  for (let attempt = 1; speeds === undefined; attempt += 1) {
    speeds = await driveSlowly().catch((error) => {
      if (attempt === 4) throw error;
    });
    await page.mouse.up();
  }
  assert.ok(Math.max(...speeds) <= quarterSpeed / 2 + 0.001, `${Math.max(...speeds)} m/s`);
  await waitFor("the robot's stop", () => !isMove(velocities().at(-1)));
  assert.deepEqual(complaintsOf(page), []);
});

test("a link that is stuck for two seconds locks the drive, and the robot moves no more", async () => {
  await unlockDrive(page);
  await pushStickAhead(page);
  await waitFor("the robot to move", () => velocities().filter(isMove).length > 3);
  link.stall(2000);
  await page.getByText("Locked", { exact: true }).waitFor();
  await waitFor("the robot's stop", () => !isMove(velocities().at(-1)));
  await sleep(2000);
  await page.mouse.up();
  const count = velocities().length;
  await sleep(movementMs);
  assert.equal(isMove(velocities().at(-1)), false);
  assert.deepEqual(velocities().slice(count).filter(isMove), []);
});

test("an uneven link never leaves the robot moving after the stick is let go", async () => {
  link.delayMs = () => (Math.random() < 0.05 ? 500 : 20 + 60 * Math.random());
  for (let turn = 0; turn < 3; turn += 1) {
    await unlockDrive(page).catch(() => {});
    const { x, y, width, height } = await page.locator("[data-stick=move]").boundingBox();
    await page.mouse.move(x + width / 2, y + height / 2);
    await page.mouse.down();
    await page.mouse.move(x + width / 2, y + height * 0.1, { steps: 3 });
    await sleep(1000);
    await page.mouse.up();
    await sleep(2 * movementMs);
    const count = velocities().length;
    assert.ok(count === 0 || !isMove(velocities().at(-1)), "the robot still moves");
  }
  assert.ok(velocities().some(isMove), "the robot never moved");
});
