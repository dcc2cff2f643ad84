// The schema reference in a real browser.
//
//   browser_test.mjs PLAYWRIGHT CHROMIUM PAGES
//
// Ends with 77, which says skipped, where there is no browser.

import assert from "node:assert/strict";
import { existsSync } from "node:fs";
import { createRequire } from "node:module";
import path from "node:path";
import { pathToFileURL } from "node:url";

const [playwright, chromiumPath, pages] = process.argv.slice(2);
if (
  !existsSync(chromiumPath) ||
  !existsSync(path.join(playwright, "node_modules", "playwright-core"))
) {
  console.log("skipped: no Chromium or no playwright-core (./run setup)");
  process.exit(77);
}
const require = createRequire(path.join(playwright, "package.json"));
const { chromium } = require("playwright-core");
const address = (page) => pathToFileURL(path.join(pages, page)).href;

const tests = {
  async "a search finds a type and goes there"(page) {
    await page.goto(address("index.html"));
    await page.keyboard.press("/");
    await page.keyboard.type("focus mode");
    const found = await page.locator("#results .what").allTextContents();
    assert.ok(found.includes("ZAfFocusMode"), `found ${found}`);
    await page.fill("#search", "zaf debugexif");
    assert.equal(
      await page.locator("#results [aria-selected=true] .what").textContent(),
      "DebugExif",
    );
    await page.keyboard.press("Enter");
    await page.waitForURL(/zAF_debug\.html#DebugExif$/);
    assert.ok(await page.locator("#DebugExif h3").isVisible());
  },

  async "arrow keys choose, escape closes"(page) {
    await page.goto(address("index.html"));
    await page.fill("#search", "debugexif");
    const place = () =>
      page.locator("#search").getAttribute("aria-activedescendant");
    assert.equal(await place(), "result-0");
    await page.keyboard.press("ArrowDown");
    assert.equal(await place(), "result-1");
    await page.keyboard.press("Escape");
    assert.equal(await page.locator("#results").isVisible(), false);
  },

  async "a search without matches says so"(page) {
    await page.goto(address("index.html"));
    await page.fill("#search", "no such thing");
    assert.match(await page.textContent("#results"), /Nothing/);
  },

  async "colours follow the reader's setting and stay readable"(page) {
    await page.goto(address("zABC_debug.html"));
    const contrast = () =>
      page.evaluate(() => {
        const light = (colour) => {
          const [r, g, b] = colour.match(/[\d.]+/g).map((part) => {
            const c = part / 255;
            return c <= 0.04045 ? c / 12.92 : ((c + 0.055) / 1.055) ** 2.4;
          });
          return 0.2126 * r + 0.7152 * g + 0.0722 * b;
        };
        const paper = light(getComputedStyle(document.body).backgroundColor);
        const worst = [...document.querySelectorAll("main p, main a, small")]
          .map((element) => light(getComputedStyle(element).color))
          .map(
            (ink) =>
              (Math.max(ink, paper) + 0.05) / (Math.min(ink, paper) + 0.05),
          );
        return { paper, worst: Math.min(...worst) };
      });
    await page.emulateMedia({ colorScheme: "light" });
    const light = await contrast();
    await page.emulateMedia({ colorScheme: "dark" });
    const dark = await contrast();
    assert.ok(light.paper > 0.8, `paper in light: ${light.paper}`);
    assert.ok(dark.paper < 0.05, `paper in dark: ${dark.paper}`);
    assert.ok(light.worst >= 4.5, `contrast in light: ${light.worst}`);
    assert.ok(dark.worst >= 4.5, `contrast in dark: ${dark.worst}`);
  },

  async "nothing runs out of a narrow window"(page) {
    await page.setViewportSize({ width: 360, height: 740 });
    for (const name of ["index", "zAF_debug", "zHAWB_debug"]) {
      await page.goto(address(`${name}.html`));
      const width = await page.evaluate(
        () => document.documentElement.scrollWidth,
      );
      assert.ok(width <= 360, `${name} is ${width} wide`);
    }
  },
};

const browser = await chromium.launch({
  executablePath: chromiumPath,
  args: [
    "--no-sandbox",
    "--disable-gpu",
    "--disable-quic",
    "--no-first-run",
    "--disable-background-networking",
    "--disable-component-update",
    "--disable-sync",
  ],
});
let failed = 0;
for (const [name, test] of Object.entries(tests)) {
  const page = await browser.newPage();
  const errors = [];
  page.on("pageerror", (error) => errors.push(error.message));
  try {
    await test(page);
    assert.deepEqual(errors, []);
    console.log(`ok: ${name}`);
  } catch (error) {
    failed += 1;
    console.log(`FAILED: ${name}\n${error.message}`);
  }
  await page.close();
}
await browser.close();
process.exit(failed ? 1 : 0);
