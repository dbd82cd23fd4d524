// Programs from the page: stored, run, watched, renamed, removed and fetched back.
import assert from "node:assert/strict";
import { existsSync, readFileSync, readdirSync, writeFileSync } from "node:fs";
import path from "node:path";
import { after, afterEach, before, beforeEach, test } from "node:test";
import { complaintsOf, keepPicture, openBrowser, openPage, phone } from "./support/browser.mjs";
import { deadline, waitFor } from "./support/deadlines.mjs";
import { logIn } from "./support/people.mjs";
import { RunningRobot } from "./support/programs.mjs";

const mebibyte = 1024 * 1024;
// A person who types or clicks doesn't notice less, and gives up where it is much more.
const noticedMs = 300;
const endless = 'set i = 0\nwhile 1 = 1\n    set i = i + 1\n    wait 0.2\nend\n';
const ticks = 'set i = 0\nwhile 1 = 1\n    set i = i + 1\n    print "tick", i\n    wait 0.2\nend\n';
const flood = 'set i = 0\nwhile 1 = 1\n    set i = i + 1\n    print "line", i\nend\n';
// The browser itself tells of each request that fails while there is no connection.
const disconnected = /net::ERR_INTERNET_DISCONNECTED/;

let robot;
let browser;
let page;

before(async () => {
  browser = await openBrowser();
});
after(() => browser?.close());
beforeEach(async () => {
  robot = await RunningRobot.start();
  page = await openPage(browser, robot, { hash: "#/programs" });
});
afterEach(async () => {
  await page.context().close();
  await robot.close();
});

const onDisk = (file) => path.join(robot.programs, file);
const textOf = (file) => readFileSync(onDisk(file), "utf8");
const button = (name) => page.getByRole("button", { name, exact: true });
const escaped = (text) => text.replace(/[.*+?^${}()|[\]\\]/g, "\\$&");
const row = (name) => page.getByRole("row")
  .filter({ has: page.locator("th", { hasText: new RegExp(`^${escaped(name)}$`) }) });
const uploaded = (file) => page.getByRole("list", { name: "Uploads" }).getByRole("listitem")
  .filter({ hasText: file });
const dialog = () => page.getByRole("dialog");
const output = () => page.locator(".output");
const timeout = () => ({ timeout: deadline(10_000) });

function fileOf(name, content) {
  return { name, mimeType: "text/plain", buffer: Buffer.from(content) };
}

async function choose(...files) {
  const asked = page.waitForEvent("filechooser");
  await button("Choose files").click();
  await (await asked).setFiles(files);
}

async function drop(files) {
  const transfer = await page.evaluateHandle((list) => {
    const made = new DataTransfer();
    for (const { name, size } of list) made.items.add(new File([new Uint8Array(size)], name));
    return made;
  }, files);
  await page.dispatchEvent(".drop", "dragover", { dataTransfer: transfer });
  await page.locator(".drop.over").waitFor();
  await keepPicture(page, "programs-drop");
  await page.dispatchEvent(".drop", "drop", { dataTransfer: transfer });
}

/** As over a slow radio link, so that an upload takes its time. */
async function slowUploads(bytesPerSecond) {
  const session = await page.context().newCDPSession(page);
  await session.send("Network.enable");
  await session.send("Network.emulateNetworkConditions",
    { offline: false, latency: 0, downloadThroughput: -1, uploadThroughput: bytesPerSecond });
}

async function install(file, text) {
  writeFileSync(onDisk(file), text);
  await row(file).waitFor(timeout());
}

test("chosen files are stored byte for byte and come back by download", async () => {
  await logIn(page, "operator");
  const bytes = Buffer.from(Array.from({ length: 70_000 }, (_, index) => (index * 7 + (index >> 8)) % 256));
  const strange = "größe 100% #1.v2.bin";
  await choose(fileOf("wave.lv", 'print "hello"\n'), fileOf(strange, bytes));
  for (const file of ["wave.lv", strange]) {
    await uploaded(file).getByText("stored").waitFor(timeout());
    await row(file).waitFor();
  }
  assert.equal(textOf("wave.lv"), 'print "hello"\n');
  assert.deepEqual(readFileSync(onDisk(strange)), bytes);
  const begun = page.waitForEvent("download");
  await page.getByRole("link", { name: `Download ${strange}` }).click();
  const download = await begun;
  assert.equal(download.suggestedFilename(), strange);
  assert.deepEqual(readFileSync(await download.path()), bytes);
  await button("Clear list").click();
  assert.equal(await page.getByRole("list", { name: "Uploads" }).count(), 0);
  assert.deepEqual(complaintsOf(page), []);
});

test("names that the robot could not start are refused before they are sent", async () => {
  await logIn(page, "operator");
  await choose(fileOf("nodot", "x"), fileOf(".hidden", "x"));
  await uploaded("nodot").getByText("The name needs a dot and a suffix").waitFor(timeout());
  await uploaded(".hidden").getByText("can't begin or end with a dot").waitFor(timeout());
  assert.ok(!existsSync(onDisk("nodot")) && !existsSync(onDisk(".hidden")));
  assert.deepEqual(complaintsOf(page), []);
});

test("dropped files show how far they are until they are stored", async () => {
  await logIn(page, "operator");
  await slowUploads(mebibyte);
  await drop([{ name: "large.lv", size: mebibyte }, { name: "small.lv", size: 10 }]);
  const progress = page.getByRole("progressbar", { name: "Upload of large.lv" });
  const steps = new Set();
  await uploaded("small.lv").getByText("waiting").waitFor();
  await waitFor("progress", async () => {
    steps.add(await progress.getAttribute("value", { timeout: deadline(5000) }));
    return steps.size >= 4;
  });
  await keepPicture(page, "programs-upload");
  const rising = [...steps].map(Number);
  assert.deepEqual(rising, rising.toSorted((one, other) => one - other));
  assert.ok(rising.at(-1) > 0 && rising.at(-1) <= 1);
  for (const file of ["large.lv", "small.lv"]) {
    await uploaded(file).getByText("stored").waitFor(timeout());
  }
  assert.equal(readFileSync(onDisk("large.lv")).length, mebibyte);
  assert.equal(readFileSync(onDisk("small.lv")).length, 10);
  assert.equal(await page.getByText(/No connection to robot/).count(), 0);
  assert.deepEqual(complaintsOf(page), []);
});

test("a file of 32 MiB is stored whole, and one byte more isn't sent", async () => {
  await logIn(page, "operator");
  const most = 32 * mebibyte;
  await drop([{ name: "too-large.lv", size: most + 1 }, { name: "largest.lv", size: most }]);
  await uploaded("too-large.lv").getByText("The file is larger than 32 MiB.").waitFor(timeout());
  await uploaded("largest.lv").getByText("stored", { exact: true }).waitFor(timeout());
  assert.equal(readFileSync(onDisk("largest.lv")).length, most);
  assert.ok(!existsSync(onDisk("too-large.lv")));
  assert.deepEqual(complaintsOf(page), []);
});

test("a large upload that is cancelled in the middle leaves nothing, and the next one goes on", async () => {
  await logIn(page, "operator");
  const before = readdirSync(robot.programs).sort();
  await slowUploads(2 * mebibyte);
  await drop([{ name: "huge.lv", size: 20 * mebibyte }, { name: "given-up.lv", size: 1 },
    { name: "next.lv", size: 100 }]);
  await button("Cancel given-up.lv").click();
  const progress = page.getByRole("progressbar", { name: "Upload of huge.lv" });
  await waitFor("the middle", async () => Number(await progress.getAttribute("value")) > 0.05, 10_000);
  await button("Cancel huge.lv").click();
  await uploaded("huge.lv").getByText("cancelled").waitFor();
  await uploaded("given-up.lv").getByText("cancelled").waitFor();
  await uploaded("next.lv").getByText("stored").waitFor(timeout());
  await keepPicture(page, "programs-upload-cancelled");
  await row("next.lv").waitFor();
  assert.deepEqual(readdirSync(robot.programs).sort(), [...before, "next.lv"].sort());
  assert.deepEqual(complaintsOf(page), []);
});

test("a file that is there already is replaced, kept beside or skipped, as one says", async () => {
  await logIn(page, "operator");
  const old = Object.fromEntries(["hello.lv", "patrol.lv", "square.lv"].map((file) => [file, textOf(file)]));
  await choose(...Object.keys(old).map((file) => fileOf(file, `print "new ${file}"\n`)));
  await dialog().getByText("hello.lv is on the robot already").waitFor(timeout());
  await keepPicture(page, "programs-overwrite");
  await dialog().getByRole("button", { name: "Replace" }).click();
  await dialog().getByText("patrol.lv is on the robot already").waitFor(timeout());
  await dialog().getByRole("button", { name: "Rename the new one" }).click();
  await dialog().getByText("square.lv is on the robot already").waitFor(timeout());
  await dialog().getByRole("button", { name: "Skip" }).click();
  await uploaded("square.lv").getByText("skipped").waitFor(timeout());
  await uploaded("hello.lv").getByText("stored").waitFor();
  await uploaded("patrol-2.lv").getByText("stored").waitFor();
  assert.equal(textOf("hello.lv"), 'print "new hello.lv"\n');
  assert.equal(textOf("patrol.lv"), old["patrol.lv"]);
  assert.equal(textOf("patrol-2.lv"), 'print "new patrol.lv"\n');
  assert.equal(textOf("square.lv"), old["square.lv"]);
  assert.deepEqual(complaintsOf(page), []);
});

test("one answer may be for all files that follow, and closing the question replaces nothing", async () => {
  await logIn(page, "operator");
  const files = ["hello.lv", "patrol.lv", "square.lv"];
  await choose(...files.map((file) => fileOf(file, "# new\n")));
  await dialog().getByText("hello.lv is on the robot already").waitFor(timeout());
  await page.keyboard.press("Escape");
  await dialog().getByText("patrol.lv is on the robot already").waitFor(timeout());
  await dialog().getByLabel("Do the same for 1 more").check({ force: true });
  await dialog().getByRole("button", { name: "Replace" }).click();
  await uploaded("square.lv").getByText("stored").waitFor(timeout());
  await uploaded("hello.lv").getByText("skipped").waitFor();
  assert.notEqual(textOf("hello.lv"), "# new\n");
  assert.equal(textOf("patrol.lv"), "# new\n");
  assert.equal(textOf("square.lv"), "# new\n");
  assert.deepEqual(complaintsOf(page), []);
});

test("a program shows that it runs, what it prints and its variables, until it ends by itself", async () => {
  await logIn(page, "operator");
  await button("Run hello.lv").click();
  await row("hello.lv").getByText("running").waitFor(timeout());
  await button("Stop hello.lv").waitFor();
  await output().getByText("Hello, robot!").waitFor(timeout());
  await page.getByLabel("Chart of count").check({ force: true });
  await output().getByText("That was more than 20.").waitFor(timeout());
  await row("hello.lv").getByText("stopped").waitFor(timeout());
  await button("Run hello.lv").waitFor();
  const lines = (await output().innerText()).trim().split("\n");
  assert.deepEqual(lines, ["Hello, robot!", ...[1, 2, 3, 4, 5].map((n) => `${n} times ${n} is ${n * n}`),
    "That was more than 20."]);
  await row("square").getByText("25", { exact: true }).waitFor(timeout());
  await row("count").getByText("5", { exact: true }).waitFor();
  await row("name").getByText("robot", { exact: true }).waitFor();
  assert.equal(await page.getByLabel("Chart of name").count(), 0, "a text has no chart");
  await keepPicture(page, "programs-hello");
  await page.setViewportSize(phone);
  await keepPicture(page, "programs-hello-phone");
  assert.deepEqual(complaintsOf(page), []);
});

test("output can be held, filtered and saved", async () => {
  await install("ticks.lv", ticks);
  await logIn(page, "operator");
  await button("Run ticks.lv").click();
  await output().getByText("tick 1").first().waitFor(timeout());
  await button("Pause").click();
  const held = await output().innerText();
  await page.getByText(/paused, new lines: [1-9]/).waitFor(timeout());
  assert.equal(await output().innerText(), held);
  await button("Resume").click();
  await output().getByText("tick 12").waitFor(timeout());
  await button("Stop ticks.lv").click();
  await row("ticks.lv").getByText("stopped").waitFor(timeout());
  await page.getByLabel("Filter").fill("TICK 12");
  await page.getByText("Lines: 1", { exact: true }).waitFor();
  assert.equal((await output().innerText()).trim(), "tick 12");
  await page.getByLabel("Filter").fill("no such line");
  await page.getByText("No line matches the filter.").waitFor();
  await page.getByLabel("Filter").fill("");
  const begun = page.waitForEvent("download");
  await button("Save output").click();
  const saved = readFileSync(await (await begun).path(), "utf8");
  assert.match(saved, /^tick 1\ntick 2\n(tick \d+\n)*tick 12\n/);
  assert.deepEqual(complaintsOf(page), []);
});

test("running a program while another one runs asks first, and replaces it only then", async () => {
  await install("endless.lv", endless);
  await logIn(page, "operator");
  await button("Run endless.lv").click();
  await row("endless.lv").getByText("running").waitFor(timeout());
  assert.ok(await button("Rename endless.lv").isDisabled());
  assert.ok(await button("Remove endless.lv").isDisabled());
  await button("Run hello.lv").click();
  await dialog().getByText("Run hello.lv?").waitFor(timeout());
  await dialog().getByText("endless.lv is running. It will be replaced.").waitFor();
  await keepPicture(page, "programs-replace-running");
  await dialog().getByRole("button", { name: "Cancel" }).click();
  await dialog().waitFor({ state: "detached" });
  await row("endless.lv").getByText("running").waitFor();
  await row("hello.lv").getByText("stopped").waitFor();
  await button("Run hello.lv").click();
  await dialog().getByRole("button", { name: "Stop it and run" }).click();
  await row("hello.lv").getByText("running").waitFor(timeout());
  await row("endless.lv").getByText("stopped").waitFor(timeout());
  await button("Stop hello.lv").click();
  await row("hello.lv").getByText("stopped").waitFor(timeout());
  assert.deepEqual(complaintsOf(page), []);
});

test("the stop button stops the drive, and a running program on wish", async () => {
  await install("endless.lv", endless);
  await logIn(page, "operator");
  await button("Run endless.lv").click();
  await row("endless.lv").getByText("running").waitFor(timeout());
  await page.evaluate(() => { location.hash = "#/overview"; });
  await page.getByText("endless.lv is running").waitFor(timeout());
  await button("Stop drive").click();
  const stopProgram = button("Stop program too: endless.lv");
  await stopProgram.waitFor(timeout());
  await keepPicture(page, "programs-stop-too");
  await page.getByText("endless.lv is running").waitFor();
  await stopProgram.click();
  await page.getByText("No program is running.").waitFor(timeout());
  assert.equal(await stopProgram.count(), 0);
  assert.deepEqual(complaintsOf(page), []);
});

test("a program gets a new name, but never that of another one", async () => {
  await logIn(page, "operator");
  const [hello, square] = [textOf("hello.lv"), textOf("square.lv")];
  await button("Rename hello.lv").click();
  const field = page.getByLabel("New name of hello.lv");
  await field.fill("square");
  await page.getByText("There is a program of that name.").waitFor();
  assert.ok(await button("Save").isDisabled());
  await keepPicture(page, "programs-rename-taken");
  await field.press("Enter");
  await field.fill("greeting");
  // Somebody else takes the name just before, and this page hears of it only with its own order.
  let letThrough;
  const gate = new Promise((resolve) => { letThrough = resolve; });
  await page.route("**/data/program?*", (route) => gate.then(() => route.continue()).catch(() => {}));
  writeFileSync(onDisk("greeting.lv"), "# not yours\n");
  await field.press("Enter");
  letThrough();
  await page.getByText("hello.lv can't have the name of another program.").waitFor(timeout());
  assert.equal(textOf("greeting.lv"), "# not yours\n");
  assert.equal(textOf("square.lv"), square);
  assert.equal(textOf("hello.lv"), hello);
  await field.fill("welcome");
  await field.press("Enter");
  await row("welcome.lv").waitFor(timeout());
  await row("hello.lv").waitFor({ state: "detached" });
  assert.equal(textOf("welcome.lv"), hello);
  assert.ok(!existsSync(onDisk("hello.lv")));
  assert.deepEqual(complaintsOf(page), []);
});

test("a program is removed after a question only", async () => {
  await logIn(page, "operator");
  await button("Remove hello.lv").click();
  await dialog().getByText("Remove hello.lv?").waitFor();
  await dialog().getByRole("button", { name: "Cancel" }).click();
  await dialog().waitFor({ state: "detached" });
  assert.ok(existsSync(onDisk("hello.lv")));
  await button("Remove hello.lv").click();
  await dialog().getByRole("button", { name: "Remove" }).click();
  await row("hello.lv").waitFor({ state: "detached", ...timeout() });
  assert.ok(!existsSync(onDisk("hello.lv")));
  assert.deepEqual(complaintsOf(page), []);
});

test("a guest sees and fetches programs, but can do nothing with them", async () => {
  await row("hello.lv").waitFor(timeout());
  await page.getByText("Log in as operator to upload, run and stop programs.").waitFor();
  for (const action of ["Run", "Rename", "Remove"]) {
    assert.ok(await button(`${action} hello.lv`).isDisabled(), action);
  }
  assert.ok(await button("Choose files").isDisabled());
  const transfer = await page.evaluateHandle(() => {
    const made = new DataTransfer();
    made.items.add(new File(["x"], "guest.lv"));
    return made;
  });
  await page.dispatchEvent(".drop", "drop", { dataTransfer: transfer });
  const begun = page.waitForEvent("download");
  await page.getByRole("link", { name: "Download hello.lv" }).click();
  assert.equal(readFileSync(await (await begun).path(), "utf8"), textOf("hello.lv"));
  assert.equal(await page.getByRole("list", { name: "Uploads" }).count(), 0);
  assert.ok(!existsSync(onDisk("guest.lv")));
  assert.deepEqual(complaintsOf(page), []);
});

test("output that floods the page shows gaps and leaves the page usable", async () => {
  await install("flood.lv", flood);
  await logIn(page, "operator");
  await button("Run flood.lv").click();
  await output().getByText("gap: some lines were missed here").nth(2).waitFor(timeout());
  const longestMs = await page.evaluate(() => new Promise((resolve) => {
    let [longest, before] = [0, performance.now()];
    const end = before + 2000;
    const frame = (now) => {
      [longest, before] = [Math.max(longest, now - before), now];
      if (now < end) requestAnimationFrame(frame);
      else resolve(longest);
    };
    requestAnimationFrame(frame);
  }));
  assert.ok(longestMs < deadline(noticedMs), `the page stood still for ${longestMs} ms`);
  await keepPicture(page, "programs-flood");
  await page.getByLabel("Filter").fill("missed");
  await page.getByText("No line matches the filter.").waitFor();
  await page.getByLabel("Filter").fill("");
  await button("Stop flood.lv").click();
  await row("flood.lv").getByText("stopped").waitFor(timeout());
  const numbers = (await output().innerText()).split("\n").map((line) => /^line (\d+)$/.exec(line)?.[1])
    .filter(Boolean).map(Number);
  assert.deepEqual(numbers, numbers.toSorted((one, other) => one - other), "lines are out of order");
  assert.equal(new Set(numbers).size, numbers.length, "lines are there twice");
  assert.deepEqual(complaintsOf(page), []);
});

test("without a connection nothing can be done with programs, and what was typed stays", async () => {
  await logIn(page, "operator");
  await button("Rename square.lv").click();
  await page.getByLabel("New name of square.lv").fill("quadrat");
  await page.context().setOffline(true);
  await page.getByText(/No connection to robot since/).waitFor(timeout());
  for (const name of ["Run hello.lv", "Rename hello.lv", "Remove hello.lv", "Choose files", "Save"]) {
    assert.ok(await button(name).isDisabled(), name);
  }
  await page.getByText(/s old/).first().waitFor(timeout());
  await keepPicture(page, "programs-lost");
  await page.context().setOffline(false);
  await page.getByText(/No connection to robot since/)
    .waitFor({ state: "detached", timeout: deadline(15_000) });
  assert.equal(await page.getByLabel("New name of square.lv").inputValue(), "quadrat");
  await button("Save").click();
  await row("quadrat.lv").waitFor(timeout());
  assert.deepEqual(complaintsOf(page, disconnected), []);
});
