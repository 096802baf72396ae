// What the demo asks of the page: a canvas, turns of at most sixty a second, keys, and sound fed ahead of time.

const soundRate = 48000;
const aheadFrames = soundRate * 0.4; // what the worklet holds; enough for a page in the background
const blockFrames = 2048;

export class Stage {
    // sound: an AudioContext that a click has started, or null
    constructor(canvas, sound) {
        this.canvas = canvas;
        this.sound = sound;
        this.ended = false; // a key was pressed
        this.errors = [];
        this.shown = 0; // pictures
        this.due = 0; // of the next picture
        this.waiting = null; // for a turn
        this.tune = 0;
        this.lastReport = null; // the worklet's last one
        this.tuneBegan = 0;
        document.onvisibilitychange = () => this.waiting && this.wake(this.waiting); // a hidden page gets no pictures
    }

    open(title, width, height) {
        this.canvas.width = width;
        this.canvas.height = height;
        this.pen = this.canvas.getContext("2d", { alpha: false });
        this.image = this.pen.createImageData(width, height);
        this.target = new Uint32Array(this.image.data.buffer);
    }

    show(heap, place) {
        const from = new Uint32Array(heap.buffer, place, this.target.length);
        const to = this.target;
        for (let i = 0; i < to.length; ++i) {
            const pixel = from[i];
            to[i] = 0xff000000 | (pixel & 0xff00) | ((pixel >> 16) & 0xff) | ((pixel & 0xff) << 16);
        }
        this.pen.putImageData(this.image, 0, 0);
        ++this.shown;
    }

    // Resolves when the next picture is due. A hidden page gets no pictures; there the sound's messages keep time.
    turn() {
        return new Promise((resolve) => {
            this.waiting = resolve;
            if (document.hidden)
                setTimeout(() => this.wake(resolve), 100);
            else
                requestAnimationFrame((now) => this.tick(now, resolve));
        });
    }

    tick(now, resolve) {
        const period = 1000 / 60;
        if (now < this.due - period / 4 && !this.ended) {
            requestAnimationFrame((later) => this.tick(later, resolve));
            return;
        }
        this.due = Math.max(now - period, this.due) + period;
        this.wake(resolve);
    }

    wake(resolve) {
        if (this.waiting !== resolve)
            return;
        this.waiting = null;
        resolve();
    }

    end() {
        this.ended = true;
    }

    wound() {}

    // A command of the tune arrives; position: the frame of the tune at which it is to be heard.
    sync() {}

    report(text) {
        this.errors.push(text);
    }

    openSound() {
        if (this.sound === null || this.node)
            return;
        this.node = new AudioWorkletNode(this.sound, "tune-player", { outputChannelCount: [2] });
        this.node.port.onmessage = ({ data }) => this.feed(data);
        this.node.connect(this.sound.destination);
    }

    closeSound() {
        if (!this.node)
            return;
        this.node.port.onmessage = null;
        this.node.disconnect();
        this.node = null;
    }

    startTune() {
        ++this.tune;
        this.tuneBegan = performance.now();
        this.lastReport = null;
        this.sent = 0; // frames
        this.skips = []; // what was rendered for nobody, and after how many frames that were sent
        if (this.node)
            this.node.port.postMessage({ tune: this.tune });
    }

    stopTune() {
        this.startTune();
    }

    // The worklet says what it holds; it gets more, and a hidden page its turn.
    feed(report) {
        if (report.tune === this.tune && this.tune > 0) {
            this.lastReport = report;
            this.reported = performance.now();
            let held = this.sent - report.played;
            while (held < aheadFrames) {
                const place = this.module._pageRender(blockFrames) >> 2;
                const samples = this.module.HEAPF32.slice(place, place + 2 * blockFrames);
                this.node.port.postMessage({ tune: this.tune, samples }, [samples.buffer]);
                this.sent += blockFrames;
                held += blockFrames;
            }
        }
        if (document.hidden && this.waiting && performance.now() - (this.woken || 0) > 90) {
            this.woken = performance.now();
            this.wake(this.waiting);
        }
    }

    skip(frames) {
        const last = this.skips.at(-1);
        if (last?.after === this.sent)
            last.frames += frames;
        else
            this.skips.push({ after: this.sent, frames });
    }

    // Frames of the tune that have left the loudspeakers. Without sound they follow the clock.
    heard() {
        const now = performance.now();
        const patience = 1000;
        if (this.lastReport === null || now - this.reported > patience) {
            if (this.node && now - this.tuneBegan < patience)
                return 0;
            return ((now - this.tuneBegan) / 1000) * soundRate;
        }
        const latency = this.sound.outputLatency || this.sound.baseLatency || 0;
        const since = this.sound.currentTime - this.lastReport.until;
        const played = Math.min(this.lastReport.played + (since - latency) * soundRate, this.sent);
        const skipped = this.skips.filter((skip) => skip.after <= played).reduce((sum, skip) => sum + skip.frames, 0);
        return Math.max(0, played + skipped);
    }
}
