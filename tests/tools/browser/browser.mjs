// Runs tests in Chromium. The first two arguments of the program are the folder
// in which npm has installed playwright-core, and Chromium.

import assert from "node:assert/strict";
import { createRequire } from "node:module";
import path from "node:path";

const [playwright, executablePath] = process.argv.slice(2);

const args = [
  "--no-sandbox",
  "--disable-gpu",
  "--disable-quic",
  "--no-first-run",
  "--disable-background-networking",
  "--disable-component-update",
  "--disable-sync",
];

// Runs each test with a page of its own, and ends the program.
export async function run(tests) {
  const require = createRequire(path.join(playwright, "package.json"));
  const { chromium } = require("playwright-core");
  const browser = await chromium.launch({ executablePath, args });
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
}
