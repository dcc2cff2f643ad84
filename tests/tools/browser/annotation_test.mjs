// The page of `vantiro-records annotate --html` in a real browser.
//
//   annotation_test.mjs PLAYWRIGHT CHROMIUM PROGRAM

import assert from "node:assert/strict";
import { spawnSync } from "node:child_process";
import { run } from "./browser.mjs";

function pageOf(type, hex) {
  const made = spawnSync(
    process.argv[4],
    ["annotate", "--hex", "--type", type, "--html", "-", "-"],
    { input: hex, encoding: "utf8" },
  );
  assert.match(made.stdout, /<\/html>/, made.stderr);
  return made.stdout;
}

// region_dimension_list[0] at 2, with field_1 at 4 and field_7 at 9; a group
// that is unknown; a field that is cut off at the end.
const faces = pageOf("FaceRoiType", "08 02 12 07 0d 00 00 a0 3e 38 03 53 08 01 54 12 21");

const hexOf = (page, selector) =>
  page
    .locator(selector)
    .evaluateAll((found) => found.map((piece) => piece.textContent).join(" "));
const lit = (page) => hexOf(page, "#bytes a.lit");
const litLine = (page) => page.locator("#fields .lit .name").textContent();

await run({
  async "pointing at a field highlights its bytes"(page) {
    await page.setContent(faces);
    const names = page.locator("#fields .name");
    await names.filter({ hasText: /^field_7$/ }).hover();
    assert.equal(await lit(page), "38 03");
    await names.filter({ hasText: "region_dimension_list[0]" }).hover();
    assert.equal(await lit(page), "12 07 0d 00 00 a0 3e 38 03");
  },

  async "pointing at bytes highlights their field"(page) {
    await page.setContent(faces);
    await page.locator("#bytes a", { hasText: "00 00 a0 3e" }).hover();
    assert.equal(await litLine(page), "field_1");
    assert.equal(await lit(page), "0d 00 00 a0 3e");
  },

  async "the keyboard moves, folds and changes sides"(page) {
    await page.setContent(faces);
    await page.locator("#fields .line").first().focus();
    assert.equal(await lit(page), "08 02");
    await page.keyboard.press("ArrowDown");
    await page.keyboard.press("ArrowLeft");
    const inside = page.locator("#fields .name", { hasText: /^field_7$/ });
    assert.equal(await inside.isVisible(), false);
    await page.keyboard.press("ArrowDown");
    assert.match(await litLine(page), /^field 10$/);
    await page.keyboard.press("ArrowUp");
    await page.keyboard.press("ArrowRight");
    assert.equal(await inside.isVisible(), true);
    await page.locator("#bytes a.tag").nth(2).focus();
    assert.equal(await litLine(page), "field_1");
  },

  async "a search shows the matches and the messages that contain them"(page) {
    await page.setContent(faces);
    await page.keyboard.press("/");
    await page.keyboard.type("0.3125");
    const shown = await page.locator("#fields .name:visible").allTextContents();
    assert.deepEqual(shown, ["region_dimension_list[0]", "field_1"]);
    await page.fill("#search", "0xa");
    assert.equal(await lit(page), "38 03");
    await page.fill("#search", "");
    const count = await page.locator("#fields .line").count();
    assert.equal(await page.locator("#fields .line:visible").count(), count);
  },

  async "without JavaScript everything is shown, and links lead both ways"(page) {
    const plain = await page.context().browser().newPage({
      javaScriptEnabled: false,
    });
    await plain.setContent(faces);
    assert.equal(
      await hexOf(plain, "#bytes div a"),
      "08 02 12 07 0d 00 00 a0 3e 38 03 53 08 01 54 12 21",
    );
    assert.equal(await plain.locator("form").isVisible(), false);
    for (const link of await plain.locator("a[href]").all()) {
      const target = (await link.getAttribute("href")).slice(1);
      assert.equal(await plain.locator(`[id="${target}"]`).count(), 1, target);
    }
    await plain.close();
  },

  async "colours follow the reader's setting"(page) {
    await page.setContent(faces);
    const paper = () =>
      page.evaluate(() => getComputedStyle(document.body).backgroundColor);
    await page.emulateMedia({ colorScheme: "light" });
    const light = await paper();
    await page.emulateMedia({ colorScheme: "dark" });
    assert.notEqual(await paper(), light);
  },
});
