// The walk of docs/user-guide, step by step, as somebody takes it who has never seen the robot. The
// guide's pictures are the ones that are kept here.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import path from "node:path";
import { after, before, test } from "node:test";
import { fileURLToPath } from "node:url";
import { complaintsOf, keepPicture, openBrowser, openPage, phone } from "./support/browser.mjs";
import { deadline, waitFor } from "./support/deadlines.mjs";
import { RunningRobot } from "./support/programs.mjs";

// Whole pages would be long in the guide.
const inSight = { fullPage: false };
const root = path.resolve(path.dirname(fileURLToPath(import.meta.url)), "../..");
const guide = readFileSync(path.join(root, "docs/user-guide/README.md"), "utf8");

let robot;
let browser;
let page;

before(async () => {
  robot = await RunningRobot.start();
  browser = await openBrowser();
  page = await openPage(browser, robot, { viewport: { width: 1100, height: 720 } });
});
after(async () => {
  await browser?.close();
  await robot?.close();
});

const read = async (name) => (await fetch(`${robot.address}data/${name}`)).json();
const navigate = (name) => page.getByRole("navigation").getByRole("link", { name }).click();

/** Takes the middle of a stick and pulls it by parts of its size until the robot is where it should be. */
async function pull(stick, [right, below], what, isThere) {
  const { x, y, width, height } = await page.locator(`[data-stick=${stick}]`).boundingBox();
  await page.mouse.move(x + width / 2, y + height / 2);
  await page.mouse.down();
  await page.mouse.move(x + width * (0.5 + right), y + height * (0.5 + below), { steps: 4 });
  await waitFor(what, async () => isThere(await read("odometry")), 20_000);
  await page.mouse.up();
}

const steps = {
  async "Log in"() {
    await page.getByText("Nearest obstacle").waitFor();
    await keepPicture(page, "walk-overview", inSight);
    await page.getByRole("button", { name: /Guest/ }).click();
    const dialog = page.getByRole("dialog");
    await dialog.getByLabel("Role").selectOption({ label: "Admin" });
    await dialog.getByLabel("Password").fill("admin");
    await keepPicture(page, "walk-login", inSight);
    await dialog.getByRole("button", { name: "Log in" }).click();
    await page.getByRole("button", { name: /Admin/ }).waitFor();
  },

  async "Drive"() {
    await navigate("Drive");
    await page.getByLabel("Unlock driving").check({ force: true });
    await page.getByText("Armed", { exact: true }).waitFor();
    await page.getByText("50 %", { exact: true }).click();
    let bumps = 0;
    const watch = setInterval(async () => { bumps += (await read("bumper")).value ? 1 : 0; }, 50);
    await pull("move", [0, -0.4], "the robot a metre ahead", ([x]) => x > 1);
    await pull("turn", [-0.4, 0], "a turn to the left", ([, , phi]) => phi > 1.2);
    await keepPicture(page, "walk-drive");
    await pull("move", [0, 0.4], "the robot back a little", ([, y]) => y < -0.3);
    clearInterval(watch);
    assert.equal(bumps, 0, "the robot touched a wall");
    await waitFor("the robot to stand", async () => (await read("odometry"))[4] === 0);
    await page.getByLabel("Unlock driving").click({ force: true });
    await page.getByText("Locked", { exact: true }).waitFor();
  },

  async "Upload a program"() {
    await navigate("Programs");
    await page.locator("input[type=file]").setInputFiles({
      name: "my-square.lv", mimeType: "text/plain",
      buffer: readFileSync(path.join(root, "demo/programs/square.lv")) });
    await page.getByText("stored", { exact: true }).waitFor();
    await page.getByRole("button", { name: "Run my-square.lv" }).waitFor();
    await keepPicture(page, "walk-uploaded");
  },

  async "Run it"() {
    await page.getByRole("button", { name: "Run my-square.lv" }).click();
    await page.getByRole("button", { name: "Stop my-square.lv" }).waitFor();
    await page.getByText("corner 2").waitFor({ timeout: deadline(15_000) });
    await keepPicture(page, "walk-running");
    await page.getByText("back at the start").waitFor({ timeout: deadline(30_000) });
    await page.getByRole("button", { name: "Run my-square.lv" }).waitFor();
  },

  async "Change a setting"() {
    await navigate("Configuration");
    await page.getByLabel("Search settings").fill("vxmax");
    await page.getByLabel("vxmax").selectOption("1.5");
    await page.getByRole("button", { name: "Review and save" }).click();
    await keepPicture(page, "walk-setting");
    await page.getByRole("dialog").getByRole("button", { name: "Save" }).click();
    await page.getByText("One setting is in the file now.").waitFor();
    assert.match(readFileSync(path.join(robot.configuration, "tessarad.conf"), "utf8"), /^vxmax=1\.5$/m);
  },

  async "Find it again"() {
    await page.reload();
    await page.getByLabel("Search settings").fill("vxmax");
    assert.equal(await page.getByLabel("vxmax").inputValue(), "1.5");
    await keepPicture(page, "walk-found");
  },

  async "On a phone"() {
    await page.setViewportSize(phone);
    await navigate("Drive");
    await page.reload();
    await page.getByLabel("Unlock driving").waitFor();
    await page.locator("[data-stick=move]").waitFor();
    await page.getByAltText("What the robot's camera sees").waitFor();
    await keepPicture(page, "walk-phone", inSight);
  },
};

test("the guide has the steps that are walked here, with their pictures", () => {
  const headings = [...guide.matchAll(/^## \d\. (.+)$/gm)].map(([, heading]) => heading);
  assert.deepEqual(headings, Object.keys(steps));
});

for (const [name, step] of Object.entries(steps)) {
  test(`walk: ${name}`, step);
}

test("nobody complained on the way", () => {
  assert.deepEqual(complaintsOf(page), []);
});
