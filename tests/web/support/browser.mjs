// Chromium, and pages whose every complaint is kept.
import { mkdirSync } from "node:fs";
import path from "node:path";
import { chromium } from "playwright-core";

const executables = ["/usr/bin/chromium-headless-shell", "/usr/bin/chromium"];

export const phone = { width: 360, height: 740 };
export const desk = { width: 1280, height: 800 };

/** Where screenshots are kept. */
export const pictures = process.env.TESSARAD_WEB_PICTURES ?? "/tmp/tessarad-web-pictures";

export async function openBrowser() {
  let failure;
  for (const executablePath of executables) {
    try {
      return await chromium.launch({ executablePath, args: ["--no-sandbox", "--disable-gpu",
        "--disable-quic", "--disable-background-networking", "--disable-component-update",
        "--disable-sync", "--no-first-run"] });
    } catch (error) {
      failure = error;
    }
  }
  throw failure;
}

/**
 * A page at the robot's address, in a context of its own. complaints collects console errors, violations
 * of the page's policy, uncaught errors and requests to elsewhere; expected ones are named by a pattern.
 */
export async function openPage(browser, robot, { viewport = desk, theme = "light", hash = "",
  context: options = {}, context } = {}) {
  const owner = context?.newPage ? context
    : await browser.newContext({ viewport, colorScheme: theme, ...options });
  const page = await owner.newPage();
  page.complaints = [];
  page.on("console", (message) => {
    const { url } = message.location();
    // While the camera has no new image its path answers 500, which the browser tells by itself.
    if (message.type() === "error" && !url.startsWith(`${robot.address}cam0`)) {
      page.complaints.push(`${message.text()} ${url}`);
    }
  });
  page.on("pageerror", (error) => page.complaints.push(error.message));
  page.on("request", (request) => {
    const url = request.url();
    if (!url.startsWith(robot.address) && !/^(blob|data):/.test(url)) {
      page.complaints.push(`a request to ${url}`);
    }
  });
  await page.goto(`${robot.address}${hash}`);
  await page.locator("main").waitFor();
  return page;
}

/** What the page complained of, but for the texts that a test announces. */
export function complaintsOf(page, ...expected) {
  return page.complaints.filter((text) => !expected.some((pattern) => pattern.test(text)));
}

/** Keeps a picture of the whole page under this name, or of what is in sight of it. */
export async function keepPicture(page, name, { fullPage = true } = {}) {
  mkdirSync(pictures, { recursive: true });
  await page.screenshot({ path: path.join(pictures, `${name}.png`), fullPage });
}
