// The schema reference in a real browser.
//
//   reference_test.mjs PLAYWRIGHT CHROMIUM PAGES

import assert from "node:assert/strict";
import path from "node:path";
import { pathToFileURL } from "node:url";
import { run } from "./browser.mjs";

const address = (page) =>
  pathToFileURL(path.join(process.argv[4], page)).href;

await run({
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
});
