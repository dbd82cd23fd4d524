// Outputs and relays from the page, judged by what has reached the robot.
import assert from "node:assert/strict";
import { after, afterEach, before, beforeEach, test } from "node:test";
import { complaintsOf, keepPicture, openBrowser, openPage, phone } from "./support/browser.mjs";
import { deadline, waitFor } from "./support/deadlines.mjs";
import { logIn } from "./support/people.mjs";
import { RunningRobot } from "./support/programs.mjs";

// The browser itself tells of each request that fails while there is no connection.
const disconnected = /net::ERR_INTERNET_DISCONNECTED/;

let robot;
let browser;
let context;
let page;

before(async () => {
  browser = await openBrowser();
});
after(() => browser?.close());
beforeEach(async () => {
  robot = await RunningRobot.start();
  context = await browser.newContext();
  page = await openTab();
});
afterEach(async () => {
  await context.close();
  await robot.close();
});

const openTab = () => openPage(browser, robot, { context, hash: "#/io" });
const card = (tab, title) => tab.getByRole("region", { name: title, exact: true });
const outputs = (tab = page) => card(tab, "Digital outputs");
const relays = (tab = page) => card(tab, "Relays");
const inputs = (tab = page) => card(tab, "Digital inputs");
const output = (index, tab = page) => outputs(tab).getByRole("switch", { name: `Output ${index}` });
const timeout = () => ({ timeout: deadline(10_000) });
const sent = (method) => robot.commands().filter((command) => command.method === method)
  .map(({ params }) => Object.values(params)[0]);
const sentOutputs = () => sent("digitalOutputArray.setValues");

async function setAll(region, names, tab = page) {
  await region.getByRole("button", { name: /^Set all/ }).click();
  const dialog = tab.getByRole("dialog");
  for (const name of names) await dialog.getByRole("switch", { name }).click({ force: true });
  await dialog.getByRole("button", { name: /^Set all/ }).click();
  await dialog.waitFor({ state: "detached" });
  await region.getByText(/Last set here/).waitFor(timeout());
}

async function reachesRobot(values) {
  await waitFor(`${values} at the robot`, () =>
    JSON.stringify(sentOutputs().at(-1)) === JSON.stringify(values));
}

async function loseConnection() {
  await context.setOffline(true);
  await page.getByText(/No connection to robot since/).waitFor(timeout());
}

async function findConnection() {
  await context.setOffline(false);
  await page.getByText(/No connection to robot since/)
    .waitFor({ state: "detached", timeout: deadline(15_000) });
}

test("outputs are unknown until all of them were set at once, which a dialog names", async () => {
  await logIn(page, "operator");
  assert.equal(await outputs().getByText("unknown").count(), 8);
  assert.equal(await relays().getByText("unknown").count(), 2);
  assert.equal(await outputs().getByRole("switch").count(), 0);
  await keepPicture(page, "outputs-unknown");
  await outputs().getByRole("button", { name: "Set all 8…" }).click();
  const dialog = page.getByRole("dialog");
  for (let index = 0; index < 8; index += 1) {
    await dialog.getByRole("switch", { name: `Output ${index}` }).waitFor();
  }
  await dialog.getByRole("switch", { name: "Output 2" }).click({ force: true });
  await keepPicture(page, "outputs-dialog");
  await dialog.getByRole("button", { name: "Cancel" }).click();
  assert.equal(await outputs().getByText("unknown").count(), 8);
  assert.deepEqual(sentOutputs(), []);
  await setAll(outputs(), ["Output 2", "Output 7"]);
  assert.deepEqual(sentOutputs(), [[0, 0, 1, 0, 0, 0, 0, 1]]);
  assert.equal(await relays().getByText("unknown").count(), 2, "relays are another matter");
  await setAll(relays(), ["Relay 1"]);
  assert.deepEqual(sent("relayArray.setValues"), [[0, 1]]);
  assert.deepEqual(complaintsOf(page), []);
});

test("a single toggle sends what is remembered of the others, and the inputs follow", async () => {
  await logIn(page, "operator");
  await setAll(outputs(), ["Output 2"]);
  await output(5).click({ force: true });
  await reachesRobot([0, 0, 1, 0, 0, 1, 0, 0]);
  await inputs().getByText("Input 5 on").waitFor(timeout());
  await inputs().getByText("Input 2 on").waitFor();
  await waitFor("the switch to be usable again", () => output(2).isEnabled());
  await output(2).click({ force: true });
  await reachesRobot([0, 0, 0, 0, 0, 1, 0, 0]);
  await inputs().getByText("Input 2 off").waitFor(timeout());
  await inputs().getByText("Input 5 on").waitFor();
  assert.ok(await output(5).isChecked());
  assert.ok(!(await output(2).isChecked()));
  assert.equal(sentOutputs().length, 3);
  await keepPicture(page, "outputs-set");
  await page.setViewportSize(phone);
  await keepPicture(page, "outputs-set-phone");
  assert.deepEqual(complaintsOf(page), []);
});

test("a switch keeps the keyboard's focus while its order is under way", async () => {
  await logIn(page, "operator");
  await setAll(outputs(), []);
  await waitFor("the switches", () => output(2).isEnabled());
  await output(2).focus();
  const stops = () => sent("omniDrive.setVelocity").length;
  const before = stops();
  for (const isOn of [true, false, true]) {
    await page.keyboard.press("Space");
    await reachesRobot([0, 0, isOn ? 1 : 0, 0, 0, 0, 0, 0]);
    await waitFor("the focus", () => output(2).evaluate((each) => each === document.activeElement));
  }
  await outputs().getByRole("button", { name: "Forget" }).focus();
  await page.keyboard.press("Enter");
  await outputs().getByText("unknown").first().waitFor();
  await waitFor("a focus near by", () =>
    outputs().evaluate((each) => each.contains(document.activeElement)));
  assert.equal(stops(), before, "a space on a switch is no stop");
  assert.deepEqual(complaintsOf(page), []);
});

test("what was set is remembered over a reload, until one forgets it", async () => {
  await logIn(page, "operator");
  await setAll(outputs(), ["Output 3"]);
  await page.reload();
  await outputs().getByText(/Last set here .*others may have changed it/).waitFor(timeout());
  assert.ok(await output(3).isChecked());
  await outputs().getByRole("button", { name: "Forget" }).click();
  assert.equal(await outputs().getByText("unknown").count(), 8);
  assert.equal(sentOutputs().length, 1, "forgetting switches nothing");
  await page.reload();
  await outputs().getByText("unknown").nth(7).waitFor(timeout());
  assert.deepEqual(complaintsOf(page), []);
});

test("two tabs of a browser share what they know of the outputs", async () => {
  const second = await openTab();
  await logIn(page, "operator");
  await logIn(second, "operator");
  await setAll(outputs(), ["Output 0"]);
  await outputs(second).getByText(/Last set here/).waitFor(timeout());
  assert.ok(await output(0, second).isChecked());
  await output(6, second).click({ force: true });
  await reachesRobot([1, 0, 0, 0, 0, 0, 1, 0]);
  await waitFor("the first tab to follow", () => output(6).isChecked());
  await output(1).click({ force: true });
  await reachesRobot([1, 1, 0, 0, 0, 0, 1, 0]);
  await outputs(second).getByRole("button", { name: "Forget" }).click();
  await outputs().getByText("unknown").nth(7).waitFor(timeout());
  assert.deepEqual([...complaintsOf(page), ...complaintsOf(second)], []);
});

test("a connection lost for over 30 s makes the outputs unknown, a shorter loss does not", async () => {
  await page.clock.install();
  await page.reload();
  await logIn(page, "operator");
  await setAll(outputs(), ["Output 4"]);
  await loseConnection();
  await page.clock.fastForward(20_000);
  await findConnection();
  assert.ok(await output(4).isChecked());
  await loseConnection();
  await page.clock.fastForward(31_000);
  await outputs().getByText("unknown").nth(7).waitFor(timeout());
  await findConnection();
  assert.equal(await outputs().getByText("unknown").count(), 8);
  assert.deepEqual(complaintsOf(page, disconnected), []);
});

test("without a connection nothing can be switched, not even from an open dialog", async () => {
  await logIn(page, "operator");
  await setAll(outputs(), ["Output 4"]);
  await relays().getByRole("button", { name: "Set all 2…" }).click();
  const dialog = page.getByRole("dialog");
  await loseConnection();
  assert.ok(await dialog.getByRole("button", { name: "Set all 2" }).isDisabled());
  await dialog.getByRole("button", { name: "Cancel" }).click();
  for (const control of await outputs().getByRole("switch").all()) {
    assert.ok(await control.isDisabled());
  }
  for (const region of [outputs(), relays()]) {
    assert.ok(await region.getByRole("button", { name: /^Set all/ }).isDisabled());
  }
  await inputs().getByText(/s old/).waitFor(timeout());
  await keepPicture(page, "outputs-lost");
  await findConnection();
  assert.ok(await output(4).isEnabled());
  assert.deepEqual(complaintsOf(page, disconnected), []);
});

test("a guest sees inputs and what this browser knows of outputs, but switches nothing", async () => {
  await logIn(page, "operator");
  await setAll(outputs(), ["Output 1"]);
  const guest = await openTab();
  await guest.getByText("Log in as operator to switch outputs and relays.").waitFor();
  await inputs(guest).getByText("Input 1 on").waitFor(timeout());
  assert.ok(await output(1, guest).isChecked());
  assert.ok(await output(1, guest).isDisabled());
  assert.ok(await outputs(guest).getByRole("button", { name: "Set all 8…" }).isDisabled());
  assert.deepEqual([...complaintsOf(page), ...complaintsOf(guest)], []);
});
