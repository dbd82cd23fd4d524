// Logging in and out, and what holds for every page: lost roles, lost links, keys and settings.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { after, afterEach, before, test } from "node:test";
import { complaintsOf, keepPicture, openBrowser, openPage, phone } from "./support/browser.mjs";
import { deadline, waitFor } from "./support/deadlines.mjs";
import { goTo, logIn, pushStickAhead, unlockDrive } from "./support/people.mjs";
import { RunningRobot } from "./support/programs.mjs";

// What the browser itself says of requests that reach nobody.
const unreachable = /ERR_(CONNECTION|EMPTY_RESPONSE|INTERNET_DISCONNECTED|SOCKET)/;
// And of a reply whose sender was killed in the middle of it.
const cutOff = /ERR_CONTENT_LENGTH_MISMATCH/;

let robot;
let browser;
let page;

before(async () => {
  browser = await openBrowser();
});
after(() => browser?.close());
afterEach(async () => {
  await page?.context().close();
  await robot?.close();
});

async function openRobot({ settings, ...pageOptions } = {}) {
  robot = await RunningRobot.start({ settings });
  page = await openPage(browser, robot, pageOptions);
}

const dialog = () => page.getByRole("dialog");
const roleChip = (name) => page.getByRole("button", { name, exact: true });
const heading = (name) => page.getByRole("heading", { level: 1, name });
const sidOf = (tab) => tab.evaluate(() => sessionStorage.getItem("tessarad.sid"));
const themeOf = (tab) => tab.evaluate(() => document.documentElement.dataset.theme);
const backgroundOf = (tab) => tab.evaluate(() => getComputedStyle(document.body).backgroundColor);

/** What the daemon says of a session. */
async function roleOf(sid) {
  const reply = await fetch(`${robot.address}data/userrole?sid=${sid}`);
  return (await reply.json()).role;
}

test("a wrong password is said, and the role stays as it was", async () => {
  await openRobot();
  await logIn(page, "operator");
  await roleChip("Operator").click();
  await dialog().getByLabel("Role").selectOption("admin");
  await dialog().getByLabel("Password").fill("operator");
  await page.keyboard.press("Enter");
  await dialog().getByText("Wrong password. Nothing has changed.").waitFor();
  await keepPicture(page, "session-wrong-password");
  await dialog().getByText("Your role now: operator").waitFor();
  assert.equal(await roleOf(await sidOf(page)), "operator");

  await dialog().getByLabel("Password").fill("admin");
  await page.keyboard.press("Enter");
  await roleChip("Admin").waitFor();
  await page.getByText("Logged in as admin").waitFor();
  assert.deepEqual(complaintsOf(page), []);
});

test("a wrong password leaves a guest a guest", async () => {
  await openRobot();
  await page.getByRole("button", { name: "Log in to stop" }).click();
  await dialog().getByText("To stop the robot, log in as operator or admin.").waitFor();
  await dialog().getByLabel("Password").fill("nobody's");
  await dialog().getByRole("button", { name: "Log in" }).click();
  await dialog().getByText("Wrong password").waitFor();
  await dialog().getByRole("button", { name: "Close" }).click();
  await roleChip("Guest").waitFor();
  assert.equal(await page.getByRole("button", { name: "Stop drive" }).count(), 0);
  assert.deepEqual(complaintsOf(page), []);
});

test("a page that needs an admin suggests that role, and others the next one", async () => {
  await openRobot({ hash: "#/config" });
  const suggested = () => dialog().getByLabel("Role").inputValue();
  await page.getByRole("main").getByRole("button", { name: "Log in" }).click();
  assert.equal(await suggested(), "admin");
  await dialog().getByRole("button", { name: "Close" }).click();
  await roleChip("Guest").click();
  assert.equal(await suggested(), "operator");
  await dialog().getByRole("button", { name: "Close" }).click();
  await logIn(page, "operator");
  await roleChip("Operator").click();
  assert.equal(await suggested(), "admin");
  assert.deepEqual(complaintsOf(page), []);
});

test("within a frame of another page there is a link to the page and nothing to click on", async () => {
  await openRobot();
  await page.goto(`${robot.address}probe.png`);
  await page.evaluate((address) => {
    const frame = document.createElement("iframe");
    frame.src = address;
    document.body.append(frame);
  }, robot.address);
  const frame = page.frameLocator("iframe");
  await frame.getByText("This page is shown inside another one").waitFor();
  assert.equal(await frame.getByRole("link", { name: "Open it by itself" }).count(), 1);
  assert.equal(await frame.getByRole("button").count(), 0);
  assert.deepEqual(complaintsOf(page), []);
});

test("a browser that denies storage shows the page all the same", async () => {
  await openRobot();
  await page.addInitScript(() => {
    for (const name of ["localStorage", "sessionStorage"]) {
      Object.defineProperty(window, name, { get() { throw new DOMException("denied", "SecurityError"); } });
    }
  });
  await page.reload();
  for (const name of ["overview", "io", "about"]) await goTo(page, name);
  await logIn(page, "operator");
  assert.deepEqual(complaintsOf(page), []);
});

test("a login outlives a reload, and a logout ends it at the daemon too", async () => {
  await openRobot();
  await logIn(page, "admin");
  const sid = await sidOf(page);
  await page.reload();
  await roleChip("Admin").waitFor();
  assert.equal(await roleOf(sid), "admin");

  await roleChip("Admin").click();
  await dialog().getByRole("button", { name: "Log out" }).click();
  await page.getByText("Logged out", { exact: true }).waitFor();
  await roleChip("Guest").waitFor();
  await page.getByRole("button", { name: "Log in to stop" }).waitFor();
  await waitFor("the daemon to forget", async () => await roleOf(sid) === "guest");
  await goTo(page, "config");
  await page.getByText("Configuration needs admin - log in").waitFor();
  assert.equal(await page.getByText("Session ended").count(), 0, "who leaves needs no warning");
  assert.deepEqual(complaintsOf(page), []);
});

test("a login that a restart of the daemon has ended is said", async () => {
  await openRobot();
  await logIn(page, "operator");
  await robot.restartDaemon();
  const notice = page.getByText("Session ended - log in again.");
  await notice.waitFor({ timeout: deadline(10_000) });
  await roleChip("Guest").waitFor();
  await keepPicture(page, "session-ended");
  await page.getByRole("button", { name: "Go on without" }).click();
  await notice.waitFor({ state: "detached" });
  assert.deepEqual(complaintsOf(page, unreachable), []);
});

for (const [look, viewport] of Object.entries({ desk: undefined, phone })) {
  test(`a robot without an administrator's password warns of itself, on a ${look}`, async () => {
    await openRobot({ settings: { administrator: "" }, ...(viewport && { viewport }) });
    await page.getByText("Everyone is admin").waitFor();
    await page.getByRole("button", { name: "Stop drive" }).waitFor();
    await keepPicture(page, `session-everyone-is-admin-${look}`);
    await roleChip("Admin").click();
    await dialog().getByText("No role needs a password on this robot: everybody is admin.").waitFor();
    assert.equal(await dialog().getByLabel("Password").count(), 0);
    assert.deepEqual(complaintsOf(page), []);
  });
}

test("an admin is logged out after 15 minutes without input", async () => {
  robot = await RunningRobot.start();
  const context = await browser.newContext();
  await context.clock.install();
  page = await openPage(browser, robot, { context });
  await logIn(page, "admin");
  const sid = await sidOf(page);

  await page.clock.fastForward("14:00");
  await page.mouse.click(700, 500);
  await page.clock.fastForward("14:00");
  await page.clock.runFor(2000);
  await roleChip("Admin").waitFor();
  assert.equal(await roleOf(sid), "admin");

  await page.clock.fastForward("01:00");
  await page.clock.runFor(2000);
  await roleChip("Guest").waitFor();
  // Whoever comes back must find out why.
  await page.clock.fastForward("01:00");
  await page.getByText("Logged out after 15 minutes without input.").waitFor();
  await waitFor("the daemon to forget", async () => await roleOf(sid) === "guest");
  assert.deepEqual(complaintsOf(page), []);
});

test("an operator stays logged in without input", async () => {
  robot = await RunningRobot.start();
  const context = await browser.newContext();
  await context.clock.install();
  page = await openPage(browser, robot, { context });
  await logIn(page, "operator");
  await page.clock.fastForward("20:00");
  await page.clock.runFor(2000);
  await roleChip("Operator").waitFor();
  assert.equal(await roleOf(await sidOf(page)), "operator");
  assert.deepEqual(complaintsOf(page), []);
});

test("a tab asks for nothing while another one drives, and says so", async () => {
  await openRobot();
  await logIn(page, "operator");
  const second = await openPage(browser, robot, { context: page.context() });
  const notice = second.getByText("Another tab is driving.");
  assert.equal(await notice.count(), 0);
  await page.bringToFront();
  let count = 0;
  second.on("request", () => { count += 1; });
  // A machine that is busy with other things may be too slow for driving, which locks it: then once more.
  for (let attempt = 1, isDriving = false; !isDriving; attempt += 1) {
    assert.ok(attempt <= 4, "driving goes on for three seconds");
    await page.mouse.up();
    await unlockDrive(page);
    await pushStickAhead(page);
    await notice.waitFor();
    await keepPicture(second, "session-another-tab-drives");
    // Those that were on their way may still be sent.
    await second.waitForTimeout(500);
    count = 0;
    await page.mouse.move(600, 400);
    await second.waitForTimeout(2500);
    const found = count;
    // What it shows is old because it doesn't ask, which is no fault of the robot.
    assert.equal(await second.getByText("The robot's readings have stopped").count(), 0);
    isDriving = await page.getByText("Driving", { exact: true }).isVisible();
    if (isDriving) assert.equal(found, 0, "requests beside the driving");
  }

  await page.mouse.up();
  // The switch follows when the robot has stopped.
  await page.getByLabel("Unlock driving").click({ force: true });
  await notice.waitFor({ state: "detached" });
  await waitFor("requests again", () => count > 0);
  assert.deepEqual([...complaintsOf(page), ...complaintsOf(second)], []);
});

test("a tab goes on by itself when the driving one is closed", async () => {
  await openRobot();
  await logIn(page, "operator");
  const second = await openPage(browser, robot, { context: page.context() });
  await page.bringToFront();
  await unlockDrive(page);
  await second.getByText("Another tab is driving.").waitFor();
  await page.close();
  await second.getByText("Another tab is driving.").waitFor({ state: "detached" });
  assert.deepEqual(complaintsOf(second), []);
  page = second;
});

test("the chosen colours are kept, and hold in every tab", async () => {
  await openRobot({ theme: "light", hash: "#/about" });
  const second = await openPage(browser, robot, { context: page.context() });
  assert.equal(await themeOf(page), "light");
  const light = await backgroundOf(page);
  await page.getByLabel("Colours").selectOption("dark");
  await waitFor("the dark theme", async () => await themeOf(page) === "dark");
  assert.notEqual(await backgroundOf(page), light);
  await waitFor("the other tab to follow", async () => await themeOf(second) === "dark");
  await page.reload();
  await heading("About").waitFor();
  assert.equal(await themeOf(page), "dark");
  assert.equal(await page.getByLabel("Colours").inputValue(), "dark");

  await page.getByLabel("Colours").selectOption("auto");
  await waitFor("the system's theme", async () => await themeOf(page) === "light");
  await page.emulateMedia({ colorScheme: "dark" });
  await waitFor("the theme to follow the system", async () => await themeOf(page) === "dark");
  assert.deepEqual([...complaintsOf(page), ...complaintsOf(second)], []);
});

test("settings are carried to another browser in a file", async () => {
  await openRobot({ hash: "#/about" });
  await page.getByLabel("Colours").selectOption("dark");
  await page.getByLabel("Angles in").selectOption("radians");
  const downloading = page.waitForEvent("download");
  await page.getByRole("button", { name: "Save settings as a file" }).click();
  const download = await downloading;
  assert.equal(download.suggestedFilename(), "127.0.0.1-settings.json");
  const text = readFileSync(await download.path(), "utf8");
  assert.equal(JSON.parse(text).theme, "dark");

  await page.getByRole("button", { name: "Reset all" }).click();
  await dialog().getByRole("button", { name: "Reset all" }).click();
  await waitFor("the first theme", async () => await themeOf(page) === "light");
  assert.equal(await page.getByLabel("Angles in").inputValue(), "degrees");

  const other = await openPage(browser, robot, { hash: "#/about" });
  const choose = (name, content) => other.locator("input[type=file]")
    .setInputFiles({ name, mimeType: "application/json", buffer: Buffer.from(content) });
  await choose("settings.json", text);
  await other.getByText(`Settings taken over: ${Object.keys(JSON.parse(text)).length}.`).waitFor();
  assert.equal(await themeOf(other), "dark");
  assert.equal(await other.getByLabel("Angles in").inputValue(), "radians");

  await choose("odd.json", JSON.stringify({ theme: "pink", angleUnit: "degrees", more: 1 }));
  await other.getByText("Settings taken over: 1.").waitFor();
  await other.getByText("Not understood, left out: theme, more").waitFor();
  assert.equal(await themeOf(other), "dark");
  assert.equal(await other.getByLabel("Angles in").inputValue(), "degrees");
  await choose("picture.json", "no settings");
  await other.getByText("This file holds no settings.").waitFor();
  await keepPicture(other, "session-settings");
  assert.deepEqual([...complaintsOf(page), ...complaintsOf(other)], []);
  await other.context().close();
});

test("keys list the shortcuts and change the page, but not from within a field", async () => {
  await openRobot();
  await page.keyboard.press("?");
  await dialog().getByRole("heading", { name: "Keyboard shortcuts" }).waitFor();
  await dialog().getByText("Show this list").waitFor();
  await keepPicture(page, "session-shortcuts");
  await page.keyboard.press("Escape");
  await dialog().waitFor({ state: "detached" });

  await page.keyboard.press("Alt+5");
  await heading("Services").waitFor();
  await page.getByRole("searchbox").or(page.locator("main input")).first().fill("");
  await page.keyboard.type("?");
  assert.equal(await page.locator("main input").first().inputValue(), "?");
  assert.equal(await dialog().count(), 0);
  assert.deepEqual(complaintsOf(page), []);
});

test("a lost link is one banner, and its return keeps the role and what was typed", async () => {
  await openRobot();
  await logIn(page, "admin");
  await goTo(page, "config");
  const volume = page.getByRole("textbox", { name: /^volume/ });
  await volume.fill("55");
  await page.context().setOffline(true);
  const banner = page.getByRole("alert").filter({ hasText: "No connection to robot since" });
  await banner.waitFor({ timeout: deadline(5000) });
  await page.getByText(/No reply$/).waitFor();
  const save = page.getByRole("button", { name: "Review and save" });
  assert.equal(await save.isDisabled(), true);
  await keepPicture(page, "session-lost-link");
  await volume.fill("56");

  await page.context().setOffline(false);
  await banner.waitFor({ state: "detached", timeout: deadline(10_000) });
  assert.equal(await page.locator(".notice").count(), 0);
  await roleChip("Admin").waitFor();
  assert.equal(await volume.inputValue(), "56");
  await waitFor("the button", async () => !(await save.isDisabled()));
  assert.deepEqual(complaintsOf(page, unreachable), []);
});

test("a daemon that has died and come back is found again by a page that is open", async () => {
  await openRobot();
  await robot.killDaemon();
  const banner = page.getByText(/No connection to robot since \d/);
  await banner.waitFor({ timeout: deadline(5000) });
  await robot.startDaemon();
  await banner.waitFor({ state: "detached", timeout: deadline(10_000) });
  assert.equal(await page.getByText("Session ended").count(), 0, "a guest loses nothing");
  assert.deepEqual(complaintsOf(page, unreachable, cutOff), []);
});
