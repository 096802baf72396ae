// The page around the show: the cover, loading, keys and touches, full screen, and playing again.

import { Stage } from "./stage.js";

const body = document.body;
const canvas = document.getElementById("canvas");
const cover = document.getElementById("cover");
const message = document.getElementById("message");
const playButton = document.getElementById("play");
const bar = document.getElementById("bar");

let state = "cover"; // or "loading", "playing"
let stage = null;
let program = null; // the script that makes the demo, once it is loaded

function say(text) {
    message.textContent = text;
}

function showProgress(part) {
    bar.style.visibility = "visible";
    bar.firstElementChild.style.width = `${100 * part}%`;
}

// Whole factors of the screen's own pixels, as many as fit.
function place() {
    const ratio = window.devicePixelRatio || 1;
    const room = Math.min((innerWidth * ratio) / canvas.width, (innerHeight * ratio) / canvas.height);
    const factor = room >= 1 ? Math.floor(room) : room;
    canvas.style.width = `${(canvas.width * factor) / ratio}px`;
    canvas.style.height = `${(canvas.height * factor) / ratio}px`;
}

function loadProgram() {
    program ??= new Promise((resolve, reject) => {
        const script = document.createElement("script");
        script.src = "lumenfold.js";
        script.onload = () => resolve(window.createLumenfold);
        script.onerror = () => reject(new Error("the program could not be loaded; is the connection gone?"));
        document.head.append(script);
    });
    return program;
}

// null where there is none: the show goes on in silence.
async function startSound() {
    if (!window.AudioContext || !window.AudioWorkletNode)
        return null;
    try {
        const sound = new AudioContext({ sampleRate: 48000, latencyHint: "playback" });
        await sound.audioWorklet.addModule("worklet.js");
        sound.resume();
        return sound;
    } catch {
        return null;
    }
}

// #part=4, or #scene=twinTunnel&sync=37@2,33@40
function wishes() {
    const hash = new URLSearchParams(location.hash.slice(1));
    if (hash.has("scene"))
        return [hash.get("scene"), hash.get("sync") ?? ""];
    return hash.has("part") ? [hash.get("part")] : [];
}

async function play() {
    if (state !== "cover")
        return;
    if (typeof WebAssembly !== "object") {
        say("This browser has no WebAssembly, and the show is made of it.");
        return;
    }
    state = "loading";
    playButton.hidden = true;
    say("Loading");
    const sound = await startSound();
    stage = new Stage(canvas, sound);
    stage.wound = (part) => say(`Winding on, part ${part}`);
    const opened = stage.open.bind(stage);
    stage.open = (...size) => {
        opened(...size);
        place();
    };
    const shown = stage.show.bind(stage);
    stage.show = (...picture) => {
        if (state === "loading") {
            state = "playing";
            body.classList.add("playing");
            cover.classList.add("gone");
        }
        shown(...picture);
    };
    window.lumenfold = { stage }; // for the tests
    try {
        const create = await loadProgram();
        await new Promise((resolve, reject) => {
            stage.finish = resolve;
            create({
                stage,
                arguments: wishes(),
                print: () => {},
                printErr: (text) => console.warn(text),
                setStatus: (text) => {
                    const [, done, all] = /\((\d+)\/(\d+)\)/.exec(text) ?? [];
                    if (all > 0)
                        showProgress(done / all);
                },
                preRun: [(module) => (stage.module = module)],
                onAbort: (cause) => reject(new Error(`the program stopped: ${cause}`)),
            }).catch(reject);
        });
    } catch (error) {
        stage.errors.push(error.message);
    }
    stage.closeSound();
    await sound?.close();
    end(stage.errors[0]);
}

function end(error) {
    state = "cover";
    body.classList.remove("playing");
    bar.style.visibility = "hidden";
    cover.classList.remove("gone");
    say(error ? `The show had to end: ${error}` : "Thank you for watching.");
    playButton.textContent = "Play again";
    playButton.hidden = false;
    playButton.focus();
    if (document.fullscreenElement)
        document.exitFullscreen();
}

function fullScreen() {
    if (document.fullscreenElement)
        document.exitFullscreen();
    else
        document.documentElement.requestFullscreen?.().catch(() => {});
}

const silentKeys = /^(Shift|Control|Alt|AltGraph|Meta|CapsLock|NumLock|ScrollLock|Fn.*|Audio.*|Volume.*|Media.*|Brightness.*|Launch.*|Dead|F11|Unidentified)$/;

addEventListener("keydown", (event) => {
    if (event.repeat || silentKeys.test(event.key))
        return;
    if (event.key.toLowerCase() === "f" || (event.key === "Enter" && event.altKey))
        fullScreen();
    else if (state === "playing")
        stage.end();
    else if (event.key === "Enter" || event.key === " ")
        play();
});

// A click on the cover starts, a click on the show ends it.
cover.addEventListener("click", play);
canvas.addEventListener("click", () => state === "playing" && stage.end());
document.getElementById("full").addEventListener("click", fullScreen);

let sleep = 0;
addEventListener("pointermove", () => {
    body.classList.add("awake");
    clearTimeout(sleep);
    sleep = setTimeout(() => body.classList.remove("awake"), 2000);
});
addEventListener("resize", place);
addEventListener("fullscreenchange", place);
place();
