#include "programs/film_output.h"
#include "programs/pending_file.h"
#include "programs/sound_bytes.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace lumenfold::film {

namespace {

// RIFF WAVE with one "fmt " and one "data" chunk; the lengths are filled in at the end.
class WaveFile : public Output {
  public:
    explicit WaveFile(const std::string& path) : target(path) {}
    ~WaveFile() override {
        if (file != nullptr)
            std::fclose(file);
    }
    WaveFile(const WaveFile&) = delete;
    WaveFile& operator=(const WaveFile&) = delete;

    void sound(const float* samples, std::size_t frames) override {
        if (file == nullptr)
            open();
        const std::vector<std::uint8_t> bytes = soundBytes(samples, frames);
        if (bytes.size() > mostBytes - dataBytes)
            throw std::runtime_error(target.name() + ": a .wav holds no more than six hours");
        check(std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size());
        dataBytes += static_cast<std::uint32_t>(bytes.size());
    }

    void finish() override {
        check(std::fseek(file, 0, SEEK_SET) == 0);
        writeHeader();
        std::FILE* closing = file;
        file = nullptr;
        check(std::fclose(closing) == 0);
        target.rename();
    }

    std::string written() const override {
        char length[32];
        std::snprintf(length, sizeof length, ": %.2f s, ", dataBytes / double{soundRate * soundFrameBytes});
        return target.name() + length + sizeInWords(target.name());
    }

  private:
    static constexpr std::uint32_t headerRest = 36; // bytes of the header after the first length
    static constexpr std::uint32_t mostBytes = 0xFFFFFFFF - headerRest;

    void open() {
        file = std::fopen(target.place().c_str(), "wb");
        check(file != nullptr);
        writeHeader();
    }

    void check(bool succeeded) const {
        if (!succeeded)
            throw std::runtime_error(target.name() + ": " + std::strerror(errno));
    }

    void put(std::uint32_t value, int bytes) {
        for (; bytes > 0; --bytes, value >>= 8)
            check(std::fputc(static_cast<int>(value & 0xFF), file) != EOF);
    }

    void writeHeader() {
        std::fputs("RIFF", file);
        put(headerRest + dataBytes, 4);
        std::fputs("WAVEfmt ", file);
        put(16, 4); // bytes of the format chunk
        put(1, 2);  // PCM
        put(soundChannels, 2);
        put(soundRate, 4);
        put(soundRate * soundFrameBytes, 4);
        put(soundFrameBytes, 2);
        put(16, 2); // bits a sample
        std::fputs("data", file);
        put(dataBytes, 4);
    }

    PendingFile target;
    std::FILE* file = nullptr;
    std::uint32_t dataBytes = 0;
};

} // namespace

std::unique_ptr<Output> makeWaveFile(const std::string& fileName) {
    return std::make_unique<WaveFile>(fileName);
}

} // namespace lumenfold::film
