// The page in a headless Chromium: page_test.mjs SITE HASHES FILM CHROMIUM. SITE: the folder of ./web; HASHES: that of
// lumenfold-hash.js; FILM: the native film tool. Prints what it measures; the exit status is 1 if anything is wrong.

import { execFileSync } from "node:child_process";
import { createReadStream, existsSync, readdirSync, statSync } from "node:fs";
import { createServer } from "node:http";
import { extname, join } from "node:path";
import puppeteer from "puppeteer-core";

const [site, hashes, film, chromium] = process.argv.slice(2);
const types = { ".html": "text/html", ".js": "text/javascript", ".wasm": "application/wasm", ".svg": "image/svg+xml" };
const seconds = (count) => new Promise((resolve) => setTimeout(resolve, count * 1000));

let faults = 0;
function check(holds, what) {
    console.log(`${holds ? "ok   " : "WRONG"} ${what}`);
    faults += holds ? 0 : 1;
}

const server = createServer((request, response) => {
    const path = new URL(request.url, "http://localhost").pathname;
    const file = path.startsWith("/test/") ? join(hashes, path.slice(6)) : join(site, path === "/" ? "index.html" : path);
    if (!existsSync(file)) {
        response.writeHead(404).end();
        return;
    }
    response.writeHead(200, { "Content-Type": types[extname(file)] ?? "application/octet-stream" });
    createReadStream(file).pipe(response);
});
await new Promise((resolve) => server.listen(0, "127.0.0.1", resolve));
const address = `http://127.0.0.1:${server.address().port}/`;

const browser = await puppeteer.launch({
    executablePath: chromium,
    headless: "new",
    args: ["--no-sandbox", "--mute-audio", "--disable-gpu", "--enable-precise-memory-info"],
});

async function openPage(fragment = "") {
    const page = await browser.newPage();
    await page.setViewport({ width: 1280, height: 800 });
    page.complaints = [];
    page.on("console", (message) => ["error", "warning"].includes(message.type()) && page.complaints.push(message.text()));
    page.on("pageerror", (error) => page.complaints.push(String(error)));
    await page.goto(address + fragment);
    return page;
}

async function startPlaying(page) {
    await page.click("#play");
    await page.waitForFunction(() => window.lumenfold?.stage.shown > 0, { timeout: 60000 });
    // what arrives, and how long after its place in the tune it is heard, in milliseconds
    await page.evaluate(() => {
        const { stage } = window.lumenfold;
        stage.arrivals = [];
        stage.sync = (value, position) =>
            stage.arrivals.push({ value, position, tune: stage.tune, late: (stage.heard() - position) / 48 });
    });
}

// The frames of every scene.
const run = (...words) => execFileSync(film, words, { encoding: "utf8", stdio: ["ignore", "pipe", "ignore"], maxBuffer: 1 << 28 });
{
    const page = await openPage();
    await page.addScriptTag({ url: "/test/lumenfold-hash.js" });
    for (const scene of run("--scene", "list").split("\n").map((line) => line.trim()).filter(Boolean)) {
        const words = ["--scene", scene, "--sync", "37@2,33@6,36@10,39@14,32@18,59@20", "--seconds", "2", "--hash"];
        const native = run(...words);
        const { lines, spent } = await page.evaluate(async (words) => {
            const lines = [];
            const begin = performance.now();
            let first = 0;
            await window.createHash({
                arguments: words,
                locateFile: (name) => `/test/${name}`,
                print: (line) => {
                    first ||= performance.now();
                    lines.push(line);
                },
                printErr: () => {},
            });
            return { lines, spent: performance.now() - (first || begin) };
        }, words);
        const same = native === lines.map((line) => line + "\n").join("");
        const rate = (lines.length / spent) * 1000;
        check(same && lines.length === 120, `${scene}: ${lines.length} frames ${same ? "equal" : "differ"}`);
        check(rate >= 60, `${scene}: ${rate.toFixed(0)} frames a second`);
    }
    await page.close();
}

// The page live.
{
    const page = await openPage();
    const begin = Date.now();
    check(await page.$eval("#play", (button) => button.textContent === "Play"), "the cover offers to play");
    await startPlaying(page);
    check(Date.now() - begin < 10000, `first picture after ${((Date.now() - begin) / 1000).toFixed(1)} s`);
    await seconds(4); // the music has begun
    const before = await page.evaluate(() => window.lumenfold.stage.shown);
    const picture = await page.screenshot({ encoding: "base64" });
    await seconds(10);
    const shown = (await page.evaluate(() => window.lumenfold.stage.shown)) - before;
    check(shown > 400 && shown < 625, `${(shown / 10).toFixed(1)} pictures a second`);
    check(picture !== (await page.screenshot({ encoding: "base64" })), "the picture moves");
    await seconds(25);
    const arrivals = await page.evaluate(() => window.lumenfold.stage.arrivals);
    const ordered = arrivals.every((one, i) => i === 0 || arrivals[i - 1].position <= one.position);
    check(arrivals.length > 0 && ordered, `${arrivals.length} sync commands in order`);
    const late = arrivals.map((one) => one.late).sort((a, b) => a - b);
    check(late[0] >= 0, "none before it is heard");
    check(late[late.length >> 1] < 40, `commands act ${late[late.length >> 1]?.toFixed(0)} ms after they are heard (median)`);
    await page.keyboard.press("Shift");
    await seconds(0.3);
    check(await page.evaluate(() => document.body.classList.contains("playing")), "a modifier does not end it");
    await page.keyboard.press("a");
    await page.waitForFunction(() => document.getElementById("play").textContent === "Play again", { timeout: 3000 });
    check(true, "a key ends it, and it offers to play again");
    await startPlaying(page);
    check(true, "it plays again");
    await page.reload();
    await startPlaying(page);
    await page.click("#canvas");
    await page.waitForFunction(() => !document.getElementById("play").hidden, { timeout: 3000 });
    check(true, "after a reload too, and a click ends it");
    check(page.complaints.length === 0, `no complaints in the console ${page.complaints.join("; ")}`);
    await page.close();
}

// One part.
{
    const page = await openPage("#part=4");
    await page.click("#play");
    await page.waitForFunction(() => window.lumenfold?.stage.shown > 30, { timeout: 60000 });
    check(page.complaints.length === 0, "#part=4 plays");
    await page.close();
}

// A scene with commands of the page's own.
{
    const page = await openPage("#scene=twinTunnel&sync=37@2,33@4");
    await startPlaying(page);
    await seconds(2);
    check((await page.evaluate(() => window.lumenfold.stage.shown)) > 60, "#scene=twinTunnel&sync=37@2,33@4 plays");
    check(page.complaints.length === 0, `without complaints ${page.complaints.join("; ")}`);
    await page.close();
}

// A touch starts and ends it.
{
    const page = await openPage();
    await page.setViewport({ width: 844, height: 390, hasTouch: true, isMobile: true, isLandscape: true });
    await page.tap("#play");
    await page.waitForFunction(() => window.lumenfold?.stage.shown > 30, { timeout: 60000 });
    const width = await page.$eval("#canvas", (canvas) => canvas.getBoundingClientRect().width);
    check(width > 300 && width <= 844, `on a small screen the picture is ${width.toFixed(0)} wide`);
    await page.tap("#canvas");
    await page.waitForFunction(() => !document.getElementById("play").hidden, { timeout: 3000 });
    check(true, "a touch ends it");
    await page.close();
}

// What can be missing.
{
    const page = await openPage();
    await page.evaluate(() => delete window.WebAssembly);
    await page.click("#play");
    check((await page.$eval("#message", (line) => line.textContent)).includes("no WebAssembly"), "WebAssembly missing: said");
    await page.close();
}
{
    const page = await openPage();
    await page.evaluate(() => delete window.AudioWorkletNode);
    await startPlaying(page);
    await seconds(38);
    const arrivals = await page.evaluate(() => window.lumenfold.stage.arrivals.length);
    check(arrivals > 0, `without sound ${arrivals} sync commands by the clock`);
    await page.close();
}
{
    const page = await openPage();
    await startPlaying(page);
    await seconds(5);
    await page.evaluate(() => window.lumenfold.stage.sound.suspend());
    await seconds(4);
    const before = await page.evaluate(() => window.lumenfold.stage.heard());
    await seconds(2);
    const after = await page.evaluate(() => window.lumenfold.stage.heard());
    check(Math.abs((after - before) / 48000 - 2) < 0.2, `sound suspended: ${((after - before) / 48000).toFixed(2)} of 2 s go on`);
    await page.evaluate(() => window.lumenfold.stage.sound.resume());
    await seconds(3);
    const back = await page.evaluate(() => window.lumenfold.stage.heard());
    check(Math.abs((back - after) / 48000 - 3) < 0.7, `and resumed: ${((back - after) / 48000).toFixed(2)} of 3 s`);
    await page.close();
}
{
    const page = await openPage();
    await page.setRequestInterception(true);
    page.on("request", (request) => (request.url().endsWith(".wasm") ? request.abort() : request.continue()));
    await page.click("#play");
    await page.waitForFunction(() => document.getElementById("message").textContent.startsWith("The show had to end"), {
        timeout: 20000,
    });
    check(await page.$eval("#play", (button) => !button.hidden), "program cannot be loaded: said, and it can be tried again");
    await page.close();
}
{
    const page = await openPage();
    await startPlaying(page);
    await seconds(4);
    const heard = () => page.evaluate(() => window.lumenfold.stage.heard());
    const cover = await browser.newPage();
    await cover.bringToFront();
    const hidden = await page.evaluate(() => document.hidden);
    const before = await heard();
    await seconds(5);
    const gone = ((await heard()) - before) / 48000;
    check(hidden && Math.abs(gone - 5) < 0.5, `hidden (${hidden}): the tune goes on, ${gone.toFixed(2)} of 5 s`);
    await page.bringToFront();
    const shown = await page.evaluate(() => window.lumenfold.stage.shown);
    await seconds(2);
    check((await page.evaluate(() => window.lumenfold.stage.shown)) - shown > 80, "seen again: the pictures are back");
    await cover.close();
    await page.close();
}

const sizes = readdirSync(site).map((name) => statSync(join(site, name)).size);
console.log(`the page: ${(sizes.reduce((a, b) => a + b) / 1e6).toFixed(1)} MB before compression`);
await browser.close();
server.close();
process.exit(faults === 0 ? 0 : 1);
