#include "core/frame_info.h"
#include "core/sync_values.h"
#include "driver/scene_table.h"
#include "driver/session.h"
#include "programs/film_output.h"
#include "programs/pending_file.h"
#include "programs/pipe_process.h"
#include "programs/sound_bytes.h"
#include "programs/system.h"

#include <cctype>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace lumenfold::film {

namespace {

using Words = std::vector<std::string>;

constexpr const char* encoderName = "ffmpeg";

void append(Words& words, const Words& more) {
    words.insert(words.end(), more.begin(), more.end());
}

std::string containerOf(const std::string& fileName) {
    const std::string kind = ending(fileName);
    return kind == ".mp4" ? "mp4" : kind == ".mkv" ? "matroska" : "webm";
}

Words webmCodecs(Preset preset) {
    Words words{"-c:v", "libvpx-vp9", "-b:v", "0", "-row-mt", "1", "-pix_fmt", "yuv420p", "-c:a", "libopus", "-b:a"};
    switch (preset) {
    case Preset::Fast:
        append(words, {"160k", "-deadline", "realtime", "-cpu-used", "7", "-crf", "24"});
        break;
    case Preset::VideoSite:
        append(words, {"256k", "-deadline", "realtime", "-cpu-used", "7", "-crf", "16"});
        break;
    case Preset::Good:
    case Preset::Archive: // an .mkv only
        append(words, {"192k", "-deadline", "good", "-cpu-used", "4", "-crf", "22"});
        break;
    }
    return words;
}

Words codecs(Preset preset, const std::string& container) {
    if (container == "webm")
        return webmCodecs(preset);
    switch (preset) {
    case Preset::Fast:
        return {"-c:v",     "libx264", "-preset", "veryfast", "-crf", "16",
                "-pix_fmt", "yuv420p", "-c:a",    "aac",      "-b:a", "224k"};
    case Preset::Archive:
        return {"-c:v", "libx264rgb", "-preset", "veryfast", "-qp", "0", "-pix_fmt", "rgb24", "-c:a", "flac"};
    case Preset::VideoSite: // the site's own encoder comes after: a high rate, and an entry point every half second
        return {"-c:v", "libx264", "-preset",  "veryfast", "-crf", "14",  "-g",   "30",
                "-bf",  "2",       "-pix_fmt", "yuv420p",  "-c:a", "aac", "-b:a", "384k"};
    case Preset::Good:
        break;
    }
    return {"-c:v", "libx264", "-preset", "medium", "-crf", "16", "-pix_fmt", "yuv420p", "-c:a", "aac", "-b:a", "224k"};
}

// Square pixels, enlarged without blur; the colours tagged as what they are.
Words filters(Preset preset, std::int32_t factor) {
    std::string chain = "setsar=1";
    if (factor > 1)
        chain +=
            ",scale=iw*" + std::to_string(factor) + ":ih*" + std::to_string(factor) + ":flags=neighbor,format=bgr0";
    if (preset == Preset::Archive)
        return {"-vf", chain};
    return {"-vf",
            chain + ",scale=out_color_matrix=bt709:out_range=tv",
            "-colorspace",
            "bt709",
            "-color_primaries",
            "bt709",
            "-color_trc",
            "bt709"};
}

Words encoderArguments(const Options& options, const std::string& container, const std::string& place) {
    const std::string size = std::to_string(frameInfo.width) + "x" + std::to_string(frameInfo.height);
    Words words{encoderName, "-y", "-nostdin", "-loglevel", "error",
                // pictures: 0x00RRGGBB, little-endian
                "-probesize", "32", "-analyzeduration", "0", "-f", "rawvideo", "-pixel_format", "bgr0", "-video_size",
                size, "-framerate", std::to_string(options.fps), "-i", "pipe:0",
                // sound
                "-probesize", "32", "-analyzeduration", "0", "-f", "s16le", "-ar", std::to_string(soundRate), "-ac",
                std::to_string(soundChannels), "-i", "pipe:3"};
    append(words, filters(options.preset, options.factor()));
    append(words, codecs(options.preset, container));
    append(words, {"-f", container, "file:" + place});
    return words;
}

// The finished film once more with what is known of it only now, the index in front.
Words labellingArguments(const std::string& container, const std::string& from, const std::string& to) {
    Words words{
        encoderName, "-y",      "-nostdin", "-loglevel", "error",         "-i", "file:" + from,  "-f", "ffmetadata",
        "-i",        "pipe:0",  "-map",     "0",         "-map_metadata", "1",  "-map_chapters", "1",  "-c",
        "copy",      "-fflags", "+bitexact"};
    if (container == "mp4")
        append(words, {"-movflags", "+faststart"});
    append(words, {"-f", container, "file:" + to});
    return words;
}

// "tunnelOpening" as "tunnel opening"
std::string inWords(const std::string& name) {
    std::string words;
    for (const char letter : name) {
        if (std::isupper(static_cast<unsigned char>(letter)) != 0)
            words += ' ';
        words += static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    }
    return words;
}

std::string chapterName(std::int32_t part) {
    if (part == scrollerPart)
        return "End scroller";
    return "Part " + std::to_string(part) + ": " + inWords(sceneOfPart(part).name);
}

std::string titleOf(const Options& options) {
    if (!options.object.empty())
        return "lumenfold: " + std::filesystem::path(options.object).filename().string();
    if (!options.scene.empty())
        return "lumenfold: " + inWords(options.scene);
    return options.part == 0 ? "lumenfold" : "lumenfold: " + chapterName(options.part);
}

// A value of the metadata format.
std::string escaped(const std::string& text) {
    std::string value;
    for (const char letter : text) {
        if (std::string("=;#\\\n").find(letter) != std::string::npos)
            value += '\\';
        value += letter;
    }
    return value;
}

// Where each part of the show begins; the loading bar belongs to the first.
class Chapters {
  public:
    void frame(std::int32_t part) {
        if (part != noPart && (starts.empty() || starts.back().second != part))
            starts.emplace_back(starts.empty() ? 0 : frames, part);
        ++frames;
    }

    std::string text(std::int32_t fps) const {
        std::string lines;
        for (std::size_t i = 0; i < starts.size(); ++i) {
            const std::int64_t end = i + 1 < starts.size() ? starts[i + 1].first : frames;
            lines += "[CHAPTER]\nTIMEBASE=1/" + std::to_string(fps) + "\nSTART=" + std::to_string(starts[i].first) +
                     "\nEND=" + std::to_string(end) + "\ntitle=" + escaped(chapterName(starts[i].second)) + "\n";
        }
        return lines;
    }

    std::int64_t length() const { return frames; }

  private:
    std::vector<std::pair<std::int64_t, std::int32_t>> starts; // first frame, part
    std::int64_t frames = 0;
};

class EncodedFilm : public Output {
  public:
    EncodedFilm(const Options& filmOptions, const std::string& fileName)
        : options(filmOptions), container(containerOf(fileName)), target(fileName), encoded(target.place()) {
        if (!programExists(encoderName))
            throw std::runtime_error(fileName + ": " + encoderName +
                                     " cannot be found; it makes the film and has to be installed");
    }

    bool enlargesItself() const override { return true; }

    void frame(const Frame& frame) override {
        if (!encoder)
            encoder.emplace(encoderArguments(options, container, encoded.place()), target.name());
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(frame.pixels);
        const auto size = static_cast<std::size_t>(frame.width) * static_cast<std::size_t>(frame.height);
        encoder->write(PipeProcess::pictures, bytes, size * sizeof(Pixel32));
        chapters.frame(frame.part);
    }

    void sound(const float* samples, std::size_t frames) override {
        const std::vector<std::uint8_t> bytes = soundBytes(samples, frames);
        encoder->write(PipeProcess::sounds, bytes.data(), bytes.size());
    }

    void finish() override {
        encoder->finish();
        label();
        target.rename();
    }

    std::string written() const override {
        const double seconds = static_cast<double>(chapters.length()) / options.fps;
        char length[64];
        std::snprintf(length, sizeof length, ": %lld frames, %d:%04.1f min, ",
                      static_cast<long long>(chapters.length()), static_cast<int>(seconds) / 60,
                      seconds - static_cast<int>(seconds) / 60 * 60);
        return target.name() + length + sizeInWords(target.name());
    }

  private:
    void label() {
        const bool show = options.scene.empty() && options.object.empty();
        const std::string text = ";FFMETADATA1\ntitle=" + escaped(titleOf(options)) + "\n" +
                                 (show ? chapters.text(options.fps) : std::string());
        PipeProcess labelling(labellingArguments(container, encoded.place(), target.place()), target.name());
        labelling.write(PipeProcess::pictures, reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
        labelling.finish();
    }

    const Options& options;
    std::string container;
    PendingFile target;
    PendingFile encoded; // never renamed: only what it is written to is used
    Chapters chapters;
    std::optional<PipeProcess> encoder; // destroyed first: it writes
};

} // namespace

std::unique_ptr<Output> makeEncodedFilm(const Options& options, const std::string& fileName) {
    return std::make_unique<EncodedFilm>(options, fileName);
}

} // namespace lumenfold::film
