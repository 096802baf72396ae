// Plays the frames that the page sends ahead of time, and reports how far it is.

class TunePlayer extends AudioWorkletProcessor {
    constructor() {
        super();
        this.clear(0);
        this.port.onmessage = ({ data }) => {
            if (data.tune !== undefined && data.samples === undefined) {
                this.clear(data.tune);
            } else if (data.tune === this.tune) {
                this.queue.push(data.samples);
                this.buffered += data.samples.length / 2;
            }
        };
    }

    clear(tune) {
        this.tune = tune; // 0: none
        this.queue = [];
        this.used = 0; // samples of the queue's first block
        this.buffered = 0; // frames
        this.played = 0; // frames of the tune
        this.blocks = 0;
    }

    process(inputs, [[left, right]]) {
        for (let i = 0; i < left.length; ++i) {
            if (this.buffered === 0)
                break; // the rest is silent
            const block = this.queue[0];
            left[i] = block[this.used];
            (right || left)[i] = block[this.used + 1];
            this.used += 2;
            --this.buffered;
            ++this.played;
            if (this.used === block.length) {
                this.queue.shift();
                this.used = 0;
            }
        }
        if (this.blocks++ % 4 === 0)
            this.port.postMessage({
                tune: this.tune,
                played: this.played,
                buffered: this.buffered,
                until: currentTime + left.length / sampleRate,
            });
        return true;
    }
}

registerProcessor("tune-player", TunePlayer);
