// What the browser interface costs: bytes, the time until something is seen, the daemon's time for a tab
// that is only open, and the growth of a tab that stays open.
//
// usage: browser.mjs BIN_DIR [SOAK_MINUTES]
//
// The soak drives through all pages at their full rates; an hour is the goal's measure, and a few
// minutes show a leak as well.
import { readFileSync, statSync } from "node:fs";
import path from "node:path";
import { fileURLToPath } from "node:url";

process.env.TESSARAD_BIN_DIR = path.resolve(process.argv[2]);
const minutes = Number(process.argv[3] ?? 5);
const { openBrowser, openPage } = await import("../tests/web/support/browser.mjs");
const { goTo, logIn } = await import("../tests/web/support/people.mjs");
const { RunningRobot } = await import("../tests/web/support/programs.mjs");

const dist = path.join(path.dirname(fileURLToPath(import.meta.url)), "../web/dist");
const goals = { script: 160_000, style: 25_000, paintMs: 1000, daemonPercent: 2, growthPercent: 10 };
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

/** The heap after a collection, and the nodes of all documents. */
async function footprint(session) {
  await session.send("HeapProfiler.collectGarbage");
  const { metrics } = await session.send("Performance.getMetrics");
  const metric = (name) => metrics.find((each) => each.name === name).value;
  return { heap: metric("JSHeapUsedSize"), nodes: metric("Nodes") };
}

async function tellSoak(browser, robot) {
  const page = await openPage(browser, robot);
  await logIn(page, "admin");
  const session = await page.context().newCDPSession(page);
  await session.send("Performance.enable");
  const names = ["overview", "drive", "io", "programs", "services", "network", "config", "drive"];
  const walk = async (seconds) => {
    const end = Date.now() + seconds * 1000;
    for (let turn = 0; Date.now() < end; turn += 1) {
      await goTo(page, names[turn % names.length]);
      await sleep(2000);
    }
    await goTo(page, "about");
    await sleep(1000);
    return footprint(session);
  };
  const first = await walk(30);
  const last = await walk(minutes * 60);
  for (const name of ["heap", "nodes"]) {
    const growth = (last[name] / first[name] - 1) * 100;
    tell(`${name} after ${minutes} min: ${first[name]} -> ${last[name]}, ${growth.toFixed(1)} %; `
      + `goal ${goals.growthPercent}`, growth <= goals.growthPercent);
  }
  await page.context().close();
}

const robot = await RunningRobot.start();
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
