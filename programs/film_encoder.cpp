#include "programs/film_output.h"
#include "programs/pipe_process.h"
#include "programs/sound_bytes.h"

#include <string>
#include <vector>

namespace lumenfold::film {

namespace {

std::vector<std::string> encoderArguments(const std::string& fileName, std::int32_t fps, std::int32_t width,
                                          std::int32_t height) {
    const std::string size = std::to_string(width) + "x" + std::to_string(height);
    return {"ffmpeg", "-y", "-nostdin", "-loglevel", "error",
            // pictures: 0x00RRGGBB, little-endian
            "-probesize", "32", "-analyzeduration", "0", "-f", "rawvideo", "-pixel_format", "bgr0", "-video_size", size,
            "-framerate", std::to_string(fps), "-i", "pipe:0",
            // sound
            "-probesize", "32", "-analyzeduration", "0", "-f", "s16le", "-ar", std::to_string(soundRate), "-ac",
            std::to_string(soundChannels), "-i", "pipe:3",
            // any player's subset; the colours tagged as what they are
            "-vf", "scale=out_color_matrix=bt709:out_range=tv", "-c:v", "libx264", "-preset", "medium", "-crf", "16",
            "-pix_fmt", "yuv420p", "-colorspace", "bt709", "-color_primaries", "bt709", "-color_trc", "bt709", "-c:a",
            "aac", "-b:a", "224k", "-movflags", "+faststart", "file:" + fileName};
}

class EncodedFilm : public Output {
  public:
    EncodedFilm(const std::string& fileName, std::int32_t fps, std::int32_t width, std::int32_t height)
        : encoder(encoderArguments(fileName, fps, width, height), fileName) {}

    void frame(const Frame& frame) override {
        const auto* bytes = reinterpret_cast<const std::uint8_t*>(frame.pixels);
        const auto size = static_cast<std::size_t>(frame.width) * static_cast<std::size_t>(frame.height);
        encoder.write(PipeProcess::pictures, bytes, size * sizeof(Pixel32));
    }

    void sound(const float* samples, std::size_t frames) override {
        const std::vector<std::uint8_t> bytes = soundBytes(samples, frames);
        encoder.write(PipeProcess::sounds, bytes.data(), bytes.size());
    }

    void finish() override { encoder.finish(); }

  private:
    PipeProcess encoder;
};

} // namespace

std::unique_ptr<Output> makeEncodedFilm(const std::string& fileName, std::int32_t fps, std::int32_t width,
                                        std::int32_t height) {
    return std::make_unique<EncodedFilm>(fileName, fps, width, height);
}

} // namespace lumenfold::film
