// The robot's services from the page, with stand-ins for the system's commands behind the daemon.
import assert from "node:assert/strict";
import { lstatSync, mkdtempSync, readFileSync, rmSync } from "node:fs";
import os from "node:os";
import path from "node:path";
import { after, afterEach, before, beforeEach, test } from "node:test";
import { complaintsOf, keepPicture, openBrowser, openPage, phone } from "./support/browser.mjs";
import { deadline } from "./support/deadlines.mjs";
import { logIn } from "./support/people.mjs";
import { RunningRobot } from "./support/programs.mjs";

// The browser itself tells of each request that fails while there is no connection.
const disconnected = /net::ERR_INTERNET_DISCONNECTED/;

let robot;
let browser;
let page;
let masks;

before(async () => {
  browser = await openBrowser();
});
after(() => browser?.close());
beforeEach(async () => {
  masks = mkdtempSync(path.join(os.tmpdir(), "tessarad-masks-"));
  robot = await RunningRobot.start({ variables: { TESSARAD_UNIT_DIR: masks } });
  page = await openPage(browser, robot);
  await followMasks();
  await page.goto(`${robot.address}#/services`);
  await service("veltrano-lights").waitFor();
});
afterEach(async () => {
  await page.context().close();
  await robot.close();
  rmSync(masks, { recursive: true });
});

const button = (name) => page.getByRole("button", { name, exact: true });
const service = (name) => page.getByRole("listitem")
  .filter({ has: page.getByRole("heading", { name, exact: true }) });
const bootSwitch = (name) => page.getByLabel(`Start at boot: ${name}`);
const shownNames = () => page.locator("main h3").allInnerTexts();
const stateOf = (name) =>
  readFileSync(path.join(robot.folder, "services", `${name}.service`), "utf8").split(" ")[0];
const timeout = () => ({ timeout: deadline(10_000) });

function isMasked(name) {
  return lstatSync(path.join(masks, `${name}.service`), { throwIfNoEntry: false }) !== undefined;
}

/**
 * Where the daemon looks for masks is part of its build, and is a directory of this machine. So what it
 * says of them is put right by the test's own directory, which its scripts write into.
 */
async function followMasks() {
  await page.route("**/data/services?*", async (route) => {
    const response = await route.fetch().catch(() => undefined);
    if (response === undefined) {
      await route.abort().catch(() => {});
      return;
    }
    const groups = JSON.parse((await response.text()) || "[]");
    for (const { _children: services } of groups) {
      for (const one of services) {
        if ("activation" in one) one.activation = String(!isMasked(one.name.replace(/@.*/, "@")));
      }
    }
    await route.fulfill({ response, json: groups });
  });
}

test("services stand in their groups, instances below their template, each with its state", async () => {
  const groups = page.locator("main section.card");
  const headings = await groups.locator("h2").allInnerTexts();
  assert.equal(new Set(headings).size, headings.length);
  assert.ok(headings.includes("veltrano-daemons"), headings.join());
  const own = page.getByRole("region", { name: "veltrano-daemons" });
  assert.deepEqual(await own.locator("h3").allInnerTexts(), ["veltrano-lights", "veltrano-mapper",
    "veltrano-recorder", "veltrano-camera@", "veltrano-camera@front", "veltrano-camera@rear"]);
  for (const name of ["veltrano-camera@front", "veltrano-camera@rear"]) {
    assert.match(await service(name).getAttribute("class"), /instance/);
  }
  assert.equal(await page.getByText("cron").count(), 0, "only what is listed is shown");
  await service("veltrano-lights").getByText("active (running)").waitFor();
  await service("veltrano-recorder").getByText("failed").waitFor();
  await service("veltrano-camera@rear").getByText("inactive (dead)").waitFor();
  await service("veltrano-camera@").getByText("template").waitFor();
  await keepPicture(page, "services-groups");
  await page.setViewportSize(phone);
  await keepPicture(page, "services-groups-phone");
  assert.deepEqual(complaintsOf(page), []);
});

test("the filter finds services by name and by state", async () => {
  const filter = page.getByLabel("Filter services");
  await filter.fill("LIGHTS");
  assert.deepEqual(await shownNames(), ["veltrano-lights"]);
  await filter.fill("camera rear");
  assert.deepEqual(await shownNames(), ["veltrano-camera@", "veltrano-camera@rear"]);
  await filter.fill("failed");
  assert.deepEqual(await shownNames(), ["veltrano-recorder"]);
  await filter.fill("no such service");
  await page.getByText("No service matches the filter.").waitFor();
  await filter.fill("");
  assert.ok((await shownNames()).length > 6);
  assert.deepEqual(complaintsOf(page), []);
});

test("an operator stops and starts a service and sees it change", async () => {
  await logIn(page, "operator");
  await button("Stop veltrano-lights").click();
  await service("veltrano-lights").getByText("inactive (dead)").waitFor(timeout());
  await page.getByText("veltrano-lights has stopped.").waitFor(timeout());
  assert.equal(stateOf("veltrano-lights"), "inactive");
  await button("Start veltrano-lights").click();
  await service("veltrano-lights").getByText("active (running)").waitFor(timeout());
  await page.getByText("veltrano-lights is running.").waitFor(timeout());
  assert.equal(stateOf("veltrano-lights"), "active");
  assert.deepEqual(complaintsOf(page), []);
});

test("a template starts and stops all of its instances", async () => {
  await logIn(page, "operator");
  await button("Start all veltrano-camera@").click();
  await service("veltrano-camera@rear").getByText("active (running)").waitFor(timeout());
  await page.getByText("veltrano-camera@ is running.").waitFor(timeout());
  await button("Stop veltrano-camera@front").click();
  await service("veltrano-camera@front").getByText("inactive (dead)").waitFor(timeout());
  assert.equal(stateOf("veltrano-camera@front"), "inactive");
  assert.equal(stateOf("veltrano-camera@rear"), "active");
  assert.deepEqual(complaintsOf(page), []);
});

test("an admin switches a service off after a question, and on again", async () => {
  await logIn(page, "admin");
  const name = "smartsoft-bridge";
  await bootSwitch(name).click({ force: true });
  const dialog = page.getByRole("dialog");
  await dialog.getByText(`Switch ${name} off?`).waitFor();
  await keepPicture(page, "services-switch-off");
  await dialog.getByRole("button", { name: "Cancel" }).click();
  assert.ok(await bootSwitch(name).isChecked());
  assert.ok(!isMasked(name));
  await bootSwitch(name).click({ force: true });
  await dialog.getByRole("button", { name: "Switch off" }).click();
  await service(name).getByText("switched off").waitFor(timeout());
  await page.getByText(`${name} is switched off.`).waitFor(timeout());
  assert.ok(isMasked(name));
  assert.ok(!(await bootSwitch(name).isChecked()));
  assert.equal(await button(`Start ${name}`).count(), 0, "what is switched off can't be started");
  await keepPicture(page, "services-switched-off");
  await bootSwitch(name).click({ force: true });
  await page.getByText(`${name} starts at boot.`).waitFor(timeout());
  assert.ok(!isMasked(name));
  await button(`Start ${name}`).waitFor();
  assert.deepEqual(complaintsOf(page), []);
});

test("what starts at boot is for admins, and what runs for operators", async () => {
  const name = "veltrano-mapper";
  assert.ok(await bootSwitch(name).isDisabled());
  assert.ok(await button(`Stop ${name}`).isDisabled());
  await page.getByText("Log in as operator to start and stop services.").waitFor();
  await logIn(page, "operator");
  assert.ok(await bootSwitch(name).isDisabled());
  assert.ok(await button(`Stop ${name}`).isEnabled());
  await logIn(page, "admin");
  assert.ok(await bootSwitch(name).isEnabled());
  assert.ok(await button(`Stop ${name}`).isEnabled());
  assert.deepEqual(complaintsOf(page), []);
});

test("the status of a service opens below it and follows its state", async () => {
  await logIn(page, "operator");
  const name = "veltrano-mapper";
  await button(`Status of ${name}`).click();
  const status = page.getByRole("region", { name: `Status of ${name}` });
  await status.getByText("Map of the surroundings").waitFor(timeout());
  await status.getByText("Active: active (running)").waitFor();
  await keepPicture(page, "services-status");
  await button(`Stop ${name}`).click();
  await status.getByText("Active: inactive (dead)").waitFor(timeout());
  await button(`Status of ${name}`).click();
  assert.equal(await status.count(), 0);
  assert.deepEqual(complaintsOf(page), []);
});

test("without a connection no service can be changed, and an open status stays to be read", async () => {
  await logIn(page, "admin");
  const name = "veltrano-mapper";
  await button(`Status of ${name}`).click();
  await page.getByText("Map of the surroundings").waitFor(timeout());
  await page.context().setOffline(true);
  await page.getByText(/No connection to robot since/).waitFor(timeout());
  const changing = page.locator("main .actions").getByRole("button")
    .or(page.locator("main").getByRole("switch"));
  assert.ok((await changing.count()) > 10);
  for (const control of await changing.all()) {
    assert.ok(await control.isDisabled(), await control.getAttribute("aria-label"));
  }
  assert.ok(await page.getByText("Map of the surroundings").isVisible());
  await keepPicture(page, "services-lost");
  await page.context().setOffline(false);
  await page.getByText(/No connection to robot since/)
    .waitFor({ state: "detached", timeout: deadline(15_000) });
  assert.ok(await button(`Stop ${name}`).isEnabled());
  assert.deepEqual(complaintsOf(page, disconnected), []);
});
