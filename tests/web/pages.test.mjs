// Every page for every role, in both themes and on both widths: what it says, and that nobody complains.
import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { after, before, test } from "node:test";
import { complaintsOf, desk, keepPicture, openBrowser, openPage, phone } from "./support/browser.mjs";
import { deadline, waitFor } from "./support/deadlines.mjs";
import { logIn } from "./support/people.mjs";
import { RunningRobot } from "./support/programs.mjs";

const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");

const pages = {
  overview: { heading: "Overview", needs: "guest" },
  drive: { heading: "Drive", needs: "operator" },
  io: { heading: "I/O", needs: "guest" },
  programs: { heading: "Programs", needs: "guest" },
  services: { heading: "Services", needs: "guest" },
  network: { heading: "Network", needs: "guest" },
  config: { heading: "Configuration", needs: "admin" },
  about: { heading: "About", needs: "guest" },
};
const ranks = { guest: 0, operator: 1, admin: 2 };
const serious = new Set(["serious", "critical"]);

let robot;
let browser;

before(async () => {
  robot = await RunningRobot.start();
  browser = await openBrowser();
});
after(async () => {
  await browser?.close();
  await robot?.close();
});

/** axe-core's findings of weight, as lines that name rule and element. */
async function findings(page) {
  await page.evaluate(axe);
  const { violations } = await page.evaluate(() => globalThis.axe.run(document));
  return violations.filter(({ impact }) => serious.has(impact))
    .flatMap(({ id, nodes }) => nodes.map(({ html }) => `${id}: ${html.slice(0, 150)}`));
}

async function showPage(page, name) {
  await page.evaluate((hash) => { location.hash = hash; }, `#/${name}`);
  await page.locator("h1", { hasText: pages[name].heading }).waitFor();
  await waitFor("the page's readings", async () =>
    (await page.locator("main").getByText("Asking the robot").count()) === 0);
}

for (const [look, { viewport, theme }] of Object.entries({
  "light-desk": { viewport: desk, theme: "light" },
  "dark-desk": { viewport: desk, theme: "dark" },
  "light-phone": { viewport: phone, theme: "light" },
  "dark-phone": { viewport: phone, theme: "dark" },
})) {
  test(`no page has faults for an admin, ${look}`, async () => {
    const page = await openPage(browser, robot, { viewport, theme });
    await logIn(page, "admin");
    await page.getByRole("button", { name: "Close" }).click();
    for (const name of Object.keys(pages)) {
      await showPage(page, name);
      await keepPicture(page, `${name}-${look}`);
      assert.deepEqual(await findings(page), [], name);
      const overflow = await page.evaluate(() =>
        document.documentElement.scrollWidth - document.documentElement.clientWidth);
      assert.equal(overflow, 0, `${name} is wider than the window`);
    }
    assert.deepEqual(complaintsOf(page), []);
    await page.context().close();
  });
}

for (const role of ["guest", "operator", "admin"]) {
  test(`the pages show the ${role} what that role may use`, async () => {
    const page = await openPage(browser, robot);
    if (role !== "guest") await logIn(page, role);
    for (const [name, { needs }] of Object.entries(pages)) {
      await showPage(page, name);
      const isLocked = ranks[role] < ranks[needs];
      const notice = page.locator("main").getByText(`needs ${needs} - log in`);
      if (isLocked) await notice.first().waitFor();
      else assert.equal(await notice.count(), 0, `${name} is locked for the ${role}`);
      await keepPicture(page, `${name}-${role}`);
    }
    const stop = page.getByRole("button", { name: "Stop drive" });
    const login = page.getByRole("button", { name: "Log in to stop" });
    assert.equal(await stop.count(), role === "guest" ? 0 : 1);
    assert.equal(await login.count(), role === "guest" ? 1 : 0);
    assert.deepEqual(complaintsOf(page), []);
    await page.context().close();
  });
}

// What the daemon never says, of every kind that JSON has.
const oddAnswers = [null, true, 0, 1e308, "x", "<img src=x onerror=alert(1)>", [], {}, [[]], [null], [{}],
  [1, 2, 3, 4, 5, 6, 7], Array(9).fill(null), { value: null }, { value: 3 }, { message: null },
  [{ name: "a", suffix: "b", action: "running" }], [{ name: "g", _children: [null] }],
  [{ name: "g", _children: [{ name: "s", load: 1 }] }], { connection: "c", message: [{ text: 3 }] },
  { voltage: null, ext_power: true, num_chargers: 99, batteryType: "<b>", batteryLow: true,
    batteryLowShutdownCounter: -5 },
  { seq: 1, angle_min: 0, angle_increment: 1e308, range_min: -1, range_max: 1e308, ranges: [1e308, -1, null] },
];

test("whatever the daemon answers, every page still shows itself", async () => {
  const page = await openPage(browser, robot);
  await logIn(page, "admin");
  let count = 0;
  await page.route(/\/data\/(?!userrole)/, (route) => {
    count += 1;
    const odd = JSON.stringify(oddAnswers[count % oddAnswers.length]);
    return route.fulfill({ contentType: "application/json", body: count % 9 === 0 ? "{" : odd });
  });
  for (const name of Object.keys(pages)) {
    await page.evaluate((hash) => { location.hash = hash; }, `#/${name}`);
    await page.locator("h1", { hasText: pages[name].heading }).waitFor();
    const before = count;
    await waitFor("odd answers", () => count >= before + oddAnswers.length, 15_000);
  }
  assert.deepEqual(complaintsOf(page), []);
  await page.context().close();
});

test("what has not arrived yet is said to be missing, and is no zero", async () => {
  const page = await openPage(browser, robot);
  await page.route(/\/data\/(?!userrole)/, (route) => route.fulfill({ body: "" }));
  await page.reload();
  const main = page.locator("main");
  await main.getByText("no data yet").nth(8).waitFor();
  const text = await main.innerText();
  assert.doesNotMatch(text, /\b0[.,]0|reports no|sent none|Nothing touches|No program|All services/);
  await page.context().close();
});

for (const [path, card] of [
  ["analoginputarray", "Inputs"],
  ["digitalinputarray", "Inputs"],
  ["scan0", "Around the robot"],
  ["distancesensorarray", "Around the robot"],
]) {
  test(`the overview tells how old ${path} is when it stays away`, async () => {
    const page = await openPage(browser, robot);
    const shown = page.getByRole("region", { name: card, exact: true });
    await shown.getByText("no data yet").waitFor({ state: "detached" });
    await page.route(new RegExp(`/data/${path}`), () => {});
    await shown.getByText(/^\d+ s old$/).waitFor({ timeout: deadline(15_000) });
    await page.context().close();
  });
}

test("what has the focus is never behind what stays in sight, on a phone", async () => {
  const page = await openPage(browser, robot, { viewport: phone });
  await logIn(page, "admin");
  for (const name of ["io", "network", "config"]) {
    await showPage(page, name);
    await page.locator("h1").focus();
    for (const key of ["Tab", "Shift+Tab"]) {
      for (let count = 0; count < 15; count += 1) {
        await page.keyboard.press(key);
        const hidden = await page.evaluate(() => {
          const { activeElement: element } = document;
          const { left, top, width, height } = element.getBoundingClientRect();
          const seen = document.elementFromPoint(left + width / 2, top + height / 2);
          return element.closest("main") && !element.contains(seen) && element.outerHTML.slice(0, 120);
        });
        assert.ok(!hidden, `${name}: ${hidden}`);
      }
    }
  }
  await page.context().close();
});
