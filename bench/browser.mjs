// What the browser interface costs: bytes, the time until something is seen, the daemon's time for a tab
// that is only open, and the growth of a tab that stays open.
//
// usage: browser.mjs BIN_DIR [SOAK_MINUTES]
//
// The soak goes through all pages at their full rates while a program drives and prints; an hour is the
// goal's measure, and a few minutes show a leak as well. The heap holds, beside what the page keeps, the
// code that the browser's engine compiles of it, which grows more and more slowly for about an hour.
import { cpSync, existsSync, readFileSync, rmSync, statSync, writeFileSync } from "node:fs";
import path from "node:path";
import { fileURLToPath } from "node:url";

const binaries = path.resolve(process.argv[2]);
process.env.TESSARAD_BIN_DIR = binaries;
const minutes = Number(process.argv[3] ?? 5);
// The engine compiles what runs often, so that the number of visits counts and not their length; what it
// has compiled then does not count as growth.
const warmUp = { visits: 5000, stayMs: 50 };
const soakStayMs = 2000;
const { openBrowser, openPage } = await import("../tests/web/support/browser.mjs");
const { goTo, logIn } = await import("../tests/web/support/people.mjs");
const { RunningRobot } = await import("../tests/web/support/programs.mjs");

const dist = path.join(path.dirname(fileURLToPath(import.meta.url)), "../web/dist");
const goals = { script: 160_000, style: 25_000, paintMs: 1000, daemonPercent: 2,
  growthPercent: { heap: 10, kept: 5, nodes: 5, listeners: 5 } };
const soakReadings = 6;
// The most lines of a program's output that the page keeps.
const scrollback = 5000;
let isReached = true;

function tell(text, reached) {
  isReached &&= reached;
  console.log(`${text}${reached ? "" : "  MISSED"}`);
}

const sleep = (ms) => new Promise((resolve) => setTimeout(resolve, ms));

/** The time in s that a process has had of all cores so far. */
function cpuSeconds(pid) {
  const fields = readFileSync(`/proc/${pid}/stat`, "utf8").replace(/^.*\) /, "").split(" ");
  return (Number(fields[11]) + Number(fields[12])) / 100;
}

function tellSizes() {
  for (const [name, goal] of [["app.js", goals.script], ["app.css", goals.style]]) {
    const { size } = statSync(path.join(dist, name));
    tell(`${name}: ${size} bytes; goal ${goal}`, size <= goal);
  }
}

/** The first visit over a link of 10 Mbit/s with 20 ms to and fro. */
async function tellFirstPaint(browser, robot) {
  const context = await browser.newContext();
  const page = await context.newPage();
  const session = await context.newCDPSession(page);
  await session.send("Network.emulateNetworkConditions", { offline: false, latency: 20,
    downloadThroughput: 10e6 / 8, uploadThroughput: 10e6 / 8 });
  await page.goto(robot.address);
  await page.locator("main").waitFor();
  const paintMs = await page.evaluate(async () => {
    const seen = () => performance.getEntriesByName("first-contentful-paint")[0]?.startTime;
    while (seen() === undefined) await new Promise((resolve) => setTimeout(resolve, 20));
    return seen();
  });
  tell(`first paint over 10 Mbit/s: ${paintMs.toFixed(0)} ms; goal ${goals.paintMs}`,
    paintMs <= goals.paintMs);
  await context.close();
}

async function tellIdleCost(browser, robot) {
  const page = await openPage(browser, robot);
  const seconds = 20;
  for (const name of ["about", "overview"]) {
    await goTo(page, name);
    await sleep(2000);
    const begin = cpuSeconds(robot.daemon.pid);
    await sleep(seconds * 1000);
    const percent = ((cpuSeconds(robot.daemon.pid) - begin) / seconds) * 100;
    tell(`the daemon takes ${percent.toFixed(1)} % of a core for a tab that shows ${name}; `
      + `goal ${goals.daemonPercent}`, percent <= goals.daemonPercent);
  }
  await page.context().close();
}

/** Shows the demo's settings on the page of the configuration, where the bench preset looks for them. */
function installSettings(robot) {
  // Beside an installed daemon these would be the robot's own settings.
  if (!existsSync(path.join(binaries, "../CMakeCache.txt"))) {
    throw new Error(`${binaries} is not in a build's folder`);
  }
  const directory = path.join(binaries, "../etc/veltrano");
  rmSync(directory, { recursive: true, force: true });
  cpSync(robot.configuration, directory, { recursive: true });
}

/** A program that drives about and prints more lines than the page keeps in a few minutes. */
function installEndlessProgram(robot) {
  // From a number on that gets no further digit, or all lines that are kept would grow by it.
  const lines = ["set lap = 100000", "repeat 1000000 times", "set lap = lap + 1",
    "read distance 0 into ahead", "repeat 100 times", 'print "lap", lap, "ahead", ahead', "end",
    "drive 0.2 0 0.5 for 0.5", "end"];
  writeFileSync(path.join(robot.programs, "endless.lv"), `${lines.join("\n")}\n`);
}

/**
 * What is alive after a collection, in bytes: what the page keeps, the code that the engine has
 * compiled of it so far, and the numbers of nodes and listeners of all documents.
 */
async function reading(session) {
  await session.send("HeapProfiler.collectGarbage");
  const { metrics } = await session.send("Performance.getMetrics");
  const metric = (name) => metrics.find((each) => each.name === name).value;
  const parts = [];
  const keep = ({ chunk }) => parts.push(chunk);
  session.on("HeapProfiler.addHeapSnapshotChunk", keep);
  await session.send("HeapProfiler.takeHeapSnapshot", { reportProgress: false });
  session.off("HeapProfiler.addHeapSnapshotChunk", keep);
  return { heap: metric("JSHeapUsedSize"), ...bytesByKind(JSON.parse(parts.join(""))),
    nodes: metric("Nodes"), listeners: metric("JSEventListeners") };
}

/**
 * The smallest of three readings, some seconds apart: what a reply in flight holds for a moment is not
 * kept, and what is kept stands in all three.
 */
async function footprint(session) {
  let smallest = await reading(session);
  for (let again = 0; again < 2; again += 1) {
    await sleep(4000);
    const next = await reading(session);
    if (next.heap < smallest.heap) smallest = next;
  }
  return smallest;
}

/** Native nodes are the browser's own, outside of the heap. */
function bytesByKind({ snapshot: { meta }, nodes }) {
  const [type, size] = ["type", "self_size"].map((name) => meta.node_fields.indexOf(name));
  const bytes = { kept: 0, code: 0 };
  for (let at = 0; at < nodes.length; at += meta.node_fields.length) {
    const kind = meta.node_types[type][nodes[at + type]];
    if (kind !== "native") bytes[kind === "code" ? "code" : "kept"] += nodes[at + size];
  }
  return bytes;
}

async function tellSoak(browser, robot) {
  installEndlessProgram(robot);
  const page = await openPage(browser, robot);
  await logIn(page, "admin");
  await goTo(page, "programs");
  await page.getByRole("button", { name: "Run endless.lv" }).click();
  const session = await page.context().newCDPSession(page);
  await session.send("Performance.enable");
  const names = ["overview", "drive", "io", "programs", "services", "network", "config", "drive"];
  let visits = 0;
  const walk = async ({ minutes: length = Infinity, visits: most = Infinity, stayMs }) => {
    const end = Date.now() + length * 60_000;
    for (let turn = 0; turn < most && Date.now() < end; turn += 1) {
      await goTo(page, names[turn % names.length]);
      visits += 1;
      await sleep(stayMs);
      // Somebody is there: an administrator who isn't is logged out.
      await page.keyboard.press("Shift");
    }
    await goTo(page, "about");
    // The driver of the browser holds the element that it used last, and all of the page around it.
    await page.locator("h1").textContent();
    await sleep(1000);
    const found = await footprint(session);
    console.log(Object.entries({ visits, ...found }).map(([name, value]) => `${name} ${value}`).join(", "));
    return found;
  };
  // A program that does not run would leave the soak without most of its work.
  await page.getByText(`Lines: ${scrollback}`, { exact: true }).waitFor({ timeout: 120_000 });
  console.log(`the soak begins with ${warmUp.visits} visits to warm up`);
  const first = await walk(warmUp);
  let last;
  for (let part = 0; part < soakReadings; part += 1) {
    last = await walk({ minutes: minutes / soakReadings, stayMs: soakStayMs });
  }
  for (const [name, goal] of Object.entries(goals.growthPercent)) {
    const growth = (last[name] / first[name] - 1) * 100;
    tell(`${name} in another ${minutes} min: ${first[name]} -> ${last[name]}, ${growth.toFixed(1)} %; `
      + `goal ${goal}`, growth <= goal);
  }
  await page.context().close();
}

const robot = await RunningRobot.start();
installSettings(robot);
const browser = await openBrowser();
try {
  tellSizes();
  await tellFirstPaint(browser, robot);
  await tellIdleCost(browser, robot);
  await tellSoak(browser, robot);
} finally {
  await browser.close();
  await robot.close();
}
process.exitCode = isReached ? 0 : 1;
