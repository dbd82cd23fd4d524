// Changing the network from the page: the scripts of the controller, on the demo's files.
import assert from "node:assert/strict";
import { readFileSync, writeFileSync } from "node:fs";
import { after, afterEach, before, test } from "node:test";
import { complaintsOf, keepPicture, openBrowser, openPage } from "./support/browser.mjs";
import { deadline, waitFor } from "./support/deadlines.mjs";
import { loopbackScript, prepareLoopbackScript, prepareNetwork } from "./support/networkScripts.mjs";
import { goTo, logIn } from "./support/people.mjs";
import { RunningRobot } from "./support/programs.mjs";

const shortTrialS = 3;

let robot;
let browser;
let page;
let networkFile;

before(async () => {
  browser = await openBrowser();
});
after(() => browser?.close());
afterEach(async () => {
  await page?.context().close();
  await robot?.close();
});

/** A robot, and its network page as the role sees it. */
async function openNetwork(role, options = {}, prepare = () => {}) {
  robot = await RunningRobot.start(options);
  networkFile = prepareNetwork(robot);
  prepare();
  page = await openPage(browser, robot);
  if (role !== "guest") await logIn(page, role);
  await goTo(page, "network");
  await interfaceOf("eth0").getByLabel("Address from").waitFor();
}

const shortTrial = { variables: { TESSARAD_ROLLBACK_S: String(shortTrialS) } };
const textOf = (name) => readFileSync(networkFile(name), "utf8");
const wired = () => textOf("eth0.nmconnection");
const card = (title) => page.getByRole("region", { name: title });
const interfaceOf = (name) => page.getByRole("group", { name, exact: true });
const dialog = () => page.getByRole("dialog");
const stage = () => dialog().locator(".stage");

async function review() {
  await page.getByRole("button", { name: "Review and apply" }).click();
  await dialog().getByRole("table").waitFor();
  const rows = await dialog().locator("tbody tr").all();
  return Promise.all(rows.map((row) => row.locator("td, th").allInnerTexts()));
}

async function apply() {
  await dialog().getByRole("button", { name: "Apply" }).click();
}

async function awaitTrial() {
  await stage().getByText("The new settings are on trial.").waitFor({ timeout: deadline(10_000) });
}

async function press(name) {
  await dialog().locator("footer").getByRole("button", { name }).click();
}

async function readEnd(text) {
  await stage().getByText(text).waitFor({ timeout: deadline(15_000) });
}

async function closePanel() {
  await press("Close");
  await dialog().waitFor({ state: "detached" });
}

test("wired settings are compared, put on trial and kept", async () => {
  await openNetwork("admin");
  const before = wired();
  await interfaceOf("eth0").getByLabel("IPv4 address").fill("192.168.0.20");
  await interfaceOf("eth0").getByLabel("Name servers").fill("192.168.0.1;9.9.9.9;");
  await page.getByText("2 unsaved changes").waitFor();
  assert.deepEqual((await review()).sort(), [
    ["eth0: IPv4 address", "192.168.0.10", "192.168.0.20"],
    ["eth0: Name servers", "192.168.0.1;", "192.168.0.1;9.9.9.9;"],
  ]);
  await keepPicture(page, "network-review");
  assert.equal(wired(), before, "written before anybody agreed");

  await apply();
  await awaitTrial();
  await keepPicture(page, "network-trial");
  const secondsLeft = async () => parseInt(await dialog().locator(".countdown").innerText(), 10);
  const first = await secondsLeft();
  assert.ok(first > 60 && first <= 90, `${first} s left`);
  await waitFor("the countdown to go on", async () => await secondsLeft() < first);
  await dialog().getByText("ROLLBACK 90 s:").waitFor();
  assert.match(wired(), /^address1=192\.168\.0\.20\/24,192\.168\.0\.1$/m);
  // Browsers let one of several in a row close a dialog, whatever its page says.
  for (let time = 0; time < 8; time += 1) await page.keyboard.press("Escape");
  await stage().getByText("The new settings are on trial.").waitFor();

  await press("Keep settings");
  await readEnd("The new settings are kept.");
  await dialog().getByText("The robot's files hold the settings as they were sent.").waitFor();
  await keepPicture(page, "network-kept");
  await closePanel();
  assert.equal(await page.getByText(/unsaved change/).count(), 0);
  assert.match(wired(), /^dns=192\.168\.0\.1;9\.9\.9\.9;?$/m);

  await page.reload();
  await waitFor("the new address", async () =>
    await interfaceOf("eth0").getByLabel("IPv4 address").inputValue() === "192.168.0.20");
  assert.equal(await page.getByText("The last change was put on trial.").count(), 0);
  assert.deepEqual(complaintsOf(page), []);
});

test("a trial can be reverted, and what was typed stays", async () => {
  await openNetwork("admin");
  const before = wired();
  await interfaceOf("eth0:1").getByLabel("IPv4 address").fill("10.0.0.11");
  await review();
  await apply();
  await awaitTrial();
  assert.notEqual(wired(), before);
  await press("Revert");
  await readEnd("The old settings are in force again.");
  assert.equal(wired(), before);
  await closePanel();
  await page.getByText("1 unsaved change").waitFor();
  assert.equal(await interfaceOf("eth0:1").getByLabel("IPv4 address").inputValue(), "10.0.0.11");
  assert.deepEqual(complaintsOf(page), []);
});

test("a trial whose time runs out ends with the old settings", async () => {
  await openNetwork("admin", shortTrial);
  const before = wired();
  await interfaceOf("eth0:2").getByLabel("In use").selectOption("true");
  await interfaceOf("eth0:2").getByLabel("IPv4 address").fill("10.1.0.10");
  await review();
  await apply();
  await awaitTrial();
  await dialog().getByText(`ROLLBACK ${shortTrialS} s:`).waitFor();
  await readEnd("The time ran out: the old settings are in force again.");
  await keepPicture(page, "network-expired");
  assert.equal(wired(), before);
  await closePanel();
  assert.deepEqual(complaintsOf(page), []);
});

test("settings that the script refuses are told with its words, and nothing is changed", async () => {
  await openNetwork("admin");
  const before = wired();
  // The page leaves it to the robot whether a loopback address will do.
  await interfaceOf("eth0:1").getByLabel("IPv4 address").fill("127.0.0.9");
  await review();
  await apply();
  await readEnd("The script refused the settings. Nothing was changed.");
  await dialog().getByText("eth0:1: 127.0.0.9 is no address that a computer can have.").waitFor();
  await dialog().getByText("REFUSED: nothing was changed.").waitFor();
  await keepPicture(page, "network-refused");
  assert.equal(wired(), before);
  await closePanel();
  await page.getByText("1 unsaved change").waitFor();
  assert.deepEqual(complaintsOf(page), []);
});

test("settings that do not come up are taken back at once, and that is told", async () => {
  await openNetwork("admin");
  const before = wired();
  await interfaceOf("eth0").getByLabel("IPv4 address").fill("192.168.0.20");
  await review();
  writeFileSync(networkFile("no-link"), "");
  await apply();
  await readEnd("The new settings did not come up");
  assert.equal(wired(), before);
  await closePanel();
  assert.deepEqual(complaintsOf(page), []);
});

test("what no interface can have is told beside its field and can't be applied", async () => {
  await openNetwork("admin");
  const apply = page.getByRole("button", { name: "Review and apply" });
  const eth0 = interfaceOf("eth0");
  for (const [label, value, problem] of [
    ["IPv4 address", "192.168.0.300", "This is no address for a computer"],
    ["IPv4 address", "192.168.0.255", "This is the network's own or its broadcast address."],
    ["IPv4 address", "10.0.0.10", "Another interface has this address."],
    ["Gateway", "192.168.1.1", "The gateway must be another address in the same network."],
    ["Name servers", "192.168.0.1,9.9.9.9", "IPv4 addresses with “;” between them."],
  ]) {
    await eth0.getByLabel(label).fill(value);
    await page.getByText(problem).first().waitFor();
    assert.equal(await apply.isDisabled(), true, value);
    await page.getByRole("button", { name: "Discard" }).click();
  }
  await eth0.getByLabel("Address from").selectOption("auto");
  assert.equal(await eth0.getByLabel("IPv4 address").isDisabled(), true);
  assert.deepEqual(complaintsOf(page), []);
});

test("the page follows the robot to another address and back", async () => {
  const loopback = { settings: { configureeth: loopbackScript }, host: "0.0.0.0" };
  await openNetwork("admin", loopback, () => {
    prepareLoopbackScript(robot);
    const file = networkFile("eth0.nmconnection");
    writeFileSync(file, readFileSync(file, "utf8")
      .replace(/^address1=.*$/m, "address1=127.0.0.1/8").replace(/^dns=.*\n/m, ""));
  });
  const origin = (address) => `http://${address}:${robot.port}`;

  for (const [from, to] of [["127.0.0.1", "127.0.0.2"], ["127.0.0.2", "127.0.0.1"]]) {
    await interfaceOf("eth0").getByLabel("IPv4 address").fill(to);
    assert.deepEqual(await review(), [["eth0: IPv4 address", from, to]]);
    await dialog().getByText("This page uses eth0. The robot leaves this address").waitFor();
    assert.equal(await dialog().getByRole("link").getAttribute("href"), origin(to));
    await keepPicture(page, `network-to-${to}`);
    await apply();

    await page.waitForURL(`${origin(to)}/**`, { timeout: deadline(15_000) });
    await awaitTrial();
    await dialog().getByText(`Old address: ${origin(from)}`).waitFor();
    await keepPicture(page, `network-at-${to}`);
    assert.equal(new URL(page.url()).hash, "#/network", "the session stayed in the address");
    await page.getByRole("button", { name: "Admin", includeHidden: true }).waitFor();
    assert.match(wired(), new RegExp(`^address1=${to}/8`, "m"));
    await press("Keep settings");
    await readEnd("The new settings are kept.");
    await closePanel();
    await waitFor("the new address in the form", async () =>
      await interfaceOf("eth0").getByLabel("IPv4 address").inputValue() === to);
  }
  const expected = new RegExp(`^a request to http://127\\.0\\.0\\.2:${robot.port}/`);
  assert.deepEqual(complaintsOf(page, expected), []);
});

test("an admin sees the wireless key on wish alone, and changes it", async () => {
  await openNetwork("admin");
  const before = textOf("wlan.nmconnection");
  const wlan = interfaceOf("wlan0");
  const key = wlan.locator("input").and(page.getByLabel("WPA key", { exact: true }));
  assert.equal(await key.getAttribute("type"), "password");
  assert.equal(await key.inputValue(), "demonstration");
  const show = wlan.getByRole("button", { name: "Show WPA key" });
  await show.click();
  assert.equal(await key.getAttribute("type"), "text");
  await show.click();
  assert.equal(await key.getAttribute("type"), "password");

  await key.fill("a-new-passphrase");
  assert.deepEqual(await review(), [["wlan0: WPA key", "••••••", "••••••"]]);
  await keepPicture(page, "network-wireless-review");
  await apply();
  await awaitTrial();
  assert.equal(await page.getByText("a-new-passphrase").count(), 0);
  await press("Keep settings");
  await readEnd("The new settings are kept.");
  await closePanel();
  assert.match(before, /^psk=demonstration$/m);
  assert.match(textOf("wlan.nmconnection"), /^psk=a-new-passphrase$/m);
  assert.doesNotMatch(textOf("wlan.nmconnection"), /demonstration/);
  assert.deepEqual(complaintsOf(page), []);
});

test("an operator reads both networks and can change neither", async () => {
  await openNetwork("operator");
  const key = interfaceOf("wlan0").locator("input[type=password]");
  await key.waitFor();
  assert.equal(await key.inputValue(), "demonstration");
  const controls = page.locator("fieldset").locator("input, select");
  assert.ok(await controls.count() > 10);
  for (const control of await controls.all()) assert.equal(await control.isDisabled(), true);
  assert.deepEqual(complaintsOf(page), []);
});

test("a guest reads the wired network alone", async () => {
  await openNetwork("guest");
  await page.getByText("only an admin can change settings").waitFor();
  await interfaceOf("eth0:1").waitFor();
  assert.equal(await interfaceOf("wlan0").count(), 0);
  assert.equal(await card("Wireless").locator("input, select").count(), 0);
  for (const control of await page.locator("fieldset").locator("input, select").all()) {
    assert.equal(await control.isDisabled(), true);
  }
  await keepPicture(page, "network-as-guest");
  assert.deepEqual(complaintsOf(page), []);
});
