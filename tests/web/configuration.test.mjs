// Editing the configuration files from the page, judged by the files.
import assert from "node:assert/strict";
import { mkdirSync, readFileSync, writeFileSync } from "node:fs";
import path from "node:path";
import { after, afterEach, before, beforeEach, test } from "node:test";
import { complaintsOf, keepPicture, openBrowser, openPage } from "./support/browser.mjs";
import { waitFor } from "./support/deadlines.mjs";
import { goTo, logIn } from "./support/people.mjs";
import { RunningRobot } from "./support/programs.mjs";

const secret = "zebra-crossing";

let robot;
let browser;
let page;

before(async () => {
  browser = await openBrowser();
});
after(() => browser?.close());
beforeEach(async () => {
  robot = await RunningRobot.start({ settings: { operator: secret } });
  page = await openPage(browser, robot);
});
afterEach(async () => {
  await page.context().close();
  await robot.close();
});

const lights = () => path.join(robot.configuration, "lights.conf");
const main = () => path.join(robot.configuration, "tessarad.conf");
// What ends the last line is the daemon's own matter.
const linesOf = (file) => readFileSync(file, "utf8").trimEnd().split("\n");
const textField = (name) => page.getByRole("textbox", { name: new RegExp(`^${name}`) });
const choice = (name) => page.getByRole("combobox", { name: new RegExp(`^${name}`) });
const button = (name) => page.getByRole("button", { name });
const dialog = () => page.getByRole("dialog");
const report = () => page.getByRole("region", { name: "Result of saving" });

async function openConfiguration() {
  await logIn(page, "admin");
  await goTo(page, "config");
  await textField("volume").waitFor();
}

async function save() {
  await button("Review and save").click();
  await dialog().getByRole("button", { name: "Save" }).click();
  await report().waitFor();
}

/** The cells of the dialog's table of changes. */
async function changesShown() {
  await dialog().getByRole("table").waitFor();
  const rows = await dialog().locator("tbody tr").all();
  return Promise.all(rows.map((row) => row.locator("td, th").allInnerTexts()));
}

test("a saved value stands in its line of the file, and in the page when it is opened again", async () => {
  await openConfiguration();
  const before = { lights: linesOf(lights()), main: linesOf(main()) };
  const whole = readFileSync(lights(), "utf8");

  await textField("volume").fill("55");
  await choice("brightness").selectOption("25");
  await choice("outputMaxSize").selectOption("500");
  await page.getByText("3 unsaved changes").waitFor();
  await button("Review and save").click();
  assert.deepEqual(await changesShown(), [
    ["lights.conf: Horn / volume", "40", "55"],
    ["lights.conf: Lamps / brightness", "75", "25"],
    ["tessarad.conf: Lumview / outputMaxSize", "100", "500"],
  ]);
  await keepPicture(page, "configuration-review");
  assert.deepEqual(linesOf(lights()), before.lights, "written before anybody agreed");
  await dialog().getByRole("button", { name: "Save" }).click();

  await report().getByText("3 settings are in the files now.").waitFor();
  const restart = report().locator("p", { hasText: "Restart these to apply:" });
  assert.deepEqual((await restart.locator("strong").innerText()).split(", ").sort(),
    ["tessarad", "veltrano-lights"]);
  assert.equal(await restart.getByRole("link").getAttribute("href"), "#/services");
  assert.equal(await page.getByText(/unsaved change/).count(), 0);
  await keepPicture(page, "configuration-saved");

  const replaced = (lines, old, next) => lines.map((line) => (line === old ? next : line));
  assert.deepEqual(linesOf(lights()), replaced(
    replaced(before.lights, "volume=40", "volume=55"), "brightness=75", "brightness=25"));
  assert.deepEqual(linesOf(main()), replaced(before.main, "outputMaxSize=100", "outputMaxSize=500"));
  assert.equal(readFileSync(`${lights()}.bak`, "utf8"), whole);

  await page.reload();
  await textField("volume").waitFor();
  assert.equal(await textField("volume").inputValue(), "55");
  assert.equal(await choice("brightness").inputValue(), "25");
  assert.equal(await choice("outputMaxSize").inputValue(), "500");
  assert.deepEqual(complaintsOf(page), []);
});

test("a write that fails on the disk is reported as not taken, and what was typed stays", async () => {
  await openConfiguration();
  const before = readFileSync(lights(), "utf8");
  // The old text can't be kept where a folder stands that isn't empty.
  mkdirSync(path.join(`${lights()}.bak`, "in-the-way"), { recursive: true });

  await textField("volume").fill("55");
  await save();
  await report().getByText("These did not take").waitFor();
  await report().getByText("lights.conf: Horn / volume: wanted 55, the file holds 40.").waitFor();
  await keepPicture(page, "configuration-not-taken");
  assert.equal(await report().getByText(/in the files? now/).count(), 0);
  assert.equal(await report().getByText(/Restart these/).count(), 0, "there is nothing to apply");
  assert.equal(readFileSync(lights(), "utf8"), before);
  assert.equal(await textField("volume").inputValue(), "55");
  await page.getByText("1 unsaved change").waitFor();

  // The other file can be written.
  await choice("outputMaxSize").selectOption("20");
  await save();
  await report().getByText("One setting is in the file now.").waitFor();
  await report().getByText("These did not take").waitFor();
  assert.ok(linesOf(main()).includes("outputMaxSize=20"));
  assert.equal(readFileSync(lights(), "utf8"), before);
  assert.deepEqual(complaintsOf(page), []);
});

test("settings are found by words of their place, name and value, but secrets only by their name", async () => {
  await openConfiguration();
  const search = page.getByRole("searchbox", { name: "Search settings" });
  const fields = page.locator(".field");
  const all = await fields.count();

  await search.fill("HORN volume");
  await waitFor("one field", async () => await fields.count() === 1);
  await textField("volume").waitFor();
  await search.fill("12080");
  await waitFor("one field", async () => await fields.count() === 1);
  await textField("veltrano").waitFor();
  await search.fill(secret);
  await page.getByText("No setting matches.").waitFor();
  await search.fill("operator");
  await page.getByLabel("operator", { exact: true }).waitFor();
  await search.fill("");
  await waitFor("all fields", async () => await fields.count() === all);
  assert.deepEqual(complaintsOf(page), []);
});

test("only the changed settings are shown on wish, and each can be reset", async () => {
  await openConfiguration();
  const fields = page.locator(".field");
  await textField("volume").fill("55");
  await choice("driving").selectOption("off");
  const changedOnly = page.getByRole("switch", { name: "Changed only" });
  await changedOnly.check();
  await waitFor("two fields", async () => await fields.count() === 2);
  await keepPicture(page, "configuration-changed-only");
  await page.getByText("In the file: steady").waitFor();

  await button("Reset driving").click();
  await waitFor("one field", async () => await fields.count() === 1);
  await page.getByText("1 unsaved change").waitFor();
  await button("Discard").click();
  await page.getByText("No setting matches.").waitFor();
  await changedOnly.uncheck();
  assert.equal(await textField("volume").inputValue(), "40");
  assert.equal(await choice("driving").inputValue(), "steady");
  assert.deepEqual(complaintsOf(page), []);
});

test("the keyboard stays where it was when a button goes, and the result of saving comes into sight", async () => {
  await page.setViewportSize({ width: 360, height: 640 });
  await openConfiguration();
  const hasFocus = (place) => place.evaluate((each) => each.contains(document.activeElement));
  await textField("volume").fill("66");
  await button("Reset volume").focus();
  await page.keyboard.press("Enter");
  const field = textField("volume").locator("xpath=ancestor::section");
  await waitFor("a focus near by", () => hasFocus(field));
  await textField("volume").fill("67");
  await button("Review and save").focus();
  await page.keyboard.press("Enter");
  await dialog().getByRole("button", { name: "Save" }).focus();
  await page.keyboard.press("Enter");
  await report().waitFor();
  await waitFor("the focus on the result", () => hasFocus(report()));
  const { y } = await report().getByText("One setting is in the file now.").boundingBox();
  assert.ok(y > 0 && y < 640, `the result is at ${y}`);
  await keepPicture(page, "configuration-result");
  assert.deepEqual(complaintsOf(page), []);
});

test("a value that no line can hold is told and can't be saved", async () => {
  await openConfiguration();
  await textField("volume").fill("55 ");
  await page.getByText("A blank at the end would be lost.").waitFor();
  assert.equal(await button("Review and save").isDisabled(), true);
  await textField("volume").fill("55");
  assert.equal(await button("Review and save").isDisabled(), false);
  assert.deepEqual(complaintsOf(page), []);
});

test("unsaved changes are asked about before they are lost", async () => {
  await openConfiguration();
  await textField("volume").click();
  await textField("volume").fill("55");

  await page.getByRole("link", { name: "About" }).click();
  await dialog().getByText("1 unsaved change").waitFor();
  await keepPicture(page, "configuration-leave");
  await dialog().getByRole("button", { name: "Cancel" }).click();
  await dialog().waitFor({ state: "detached" });
  assert.equal(await textField("volume").inputValue(), "55");
  assert.equal(new URL(page.url()).hash, "#/config");

  const asked = page.waitForEvent("dialog");
  await page.close({ runBeforeUnload: true });
  const question = await asked;
  assert.equal(question.type(), "beforeunload");
  await question.dismiss();
  assert.equal(await textField("volume").inputValue(), "55");

  await page.getByRole("link", { name: "About" }).click();
  await dialog().getByRole("button", { name: "Discard and leave" }).click();
  await page.getByRole("heading", { name: "About" }).waitFor();
  await goTo(page, "config");
  assert.equal(await textField("volume").inputValue(), "40");
  await page.getByRole("link", { name: "About" }).click();
  await page.getByRole("heading", { name: "About" }).waitFor();
  assert.deepEqual(complaintsOf(page), []);
});

test("a logout asks before it loses unsaved changes", async () => {
  await openConfiguration();
  await textField("volume").fill("71");
  const logOut = async (answer) => {
    await page.getByTitle("Log in or out").click();
    await button("Log out").click();
    await dialog().getByText("Leave without saving?").waitFor();
    await dialog().getByRole("button", { name: answer }).click();
    await dialog().waitFor({ state: "detached" });
  };
  await logOut("Cancel");
  assert.equal(await textField("volume").inputValue(), "71");
  await logOut("Discard and leave");
  await page.getByText("Configuration needs admin - log in").waitFor();
  assert.deepEqual(complaintsOf(page), []);
});

test("edits outlive a restart of the daemon and a new login", async () => {
  await openConfiguration();
  await textField("volume").fill("55");
  await robot.restartDaemon();
  await page.getByText("Session ended").waitFor();
  await page.getByText("Configuration needs admin - log in").waitFor();
  assert.equal(await textField("volume").isVisible(), false);
  await keepPicture(page, "configuration-session-ended");

  await logIn(page, "admin");
  await textField("volume").waitFor();
  assert.equal(await textField("volume").inputValue(), "55");
  await save();
  await report().getByText("One setting is in the file now.").waitFor();
  assert.ok(linesOf(lights()).includes("volume=55"));
  assert.deepEqual(complaintsOf(page, /ERR_CONNECTION|ERR_EMPTY_RESPONSE/), []);
});

test("a value that somebody else has changed meanwhile is shown as it is in the diff", async () => {
  await openConfiguration();
  await textField("volume").fill("55");
  writeFileSync(lights(), readFileSync(lights(), "utf8").replace("volume=40", "volume=41"));
  await button("Review and save").click();
  assert.deepEqual(await changesShown(), [["lights.conf: Horn / volume", "41", "55"]]);
  await dialog().getByRole("button", { name: "Cancel" }).click();
  await page.getByText("In the file: 41").waitFor();
  assert.deepEqual(complaintsOf(page), []);
});

test("a password is shown only on wish and never in the diff, and an empty one is warned of", async () => {
  await openConfiguration();
  const field = page.getByLabel("operator", { exact: true });
  assert.equal(await field.getAttribute("type"), "password");
  assert.equal(await field.inputValue(), secret);
  await button("Show operator").click();
  assert.equal(await field.getAttribute("type"), "text");
  await button("Show operator").click();
  assert.equal(await field.getAttribute("type"), "password");

  await page.locator("input[type=password]").first().fill("");
  await button("Review and save").click();
  await dialog().getByText("lets everybody who reaches this robot act as operator").waitFor();
  assert.deepEqual(await changesShown(), [["tessarad.conf: Login / operator", "••••••", "(empty)"]]);
  await keepPicture(page, "configuration-empty-password");
  await dialog().getByRole("button", { name: "Cancel" }).click();
  assert.ok(linesOf(main()).includes(`operator=${secret}`));
  assert.deepEqual(complaintsOf(page), []);
});

for (const role of ["guest", "operator"]) {
  test(`the ${role} is told that the configuration needs an admin`, async () => {
    if (role === "operator") await logIn(page, role, secret);
    const link = page.getByRole("link", { name: /^Configuration\s*, needs admin - log in$/ });
    await link.click();
    await page.getByRole("heading", { name: "Configuration needs admin - log in" }).waitFor();
    assert.equal(await page.locator("main input, main select").count(), 0);
    await page.getByRole("main").getByRole("button", { name: "Log in" }).click();
    await dialog().getByText("Log in as admin.").waitFor();
    assert.deepEqual(complaintsOf(page), []);
  });
}
