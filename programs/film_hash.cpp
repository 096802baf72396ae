#include "programs/film_hash.h"

#include "programs/film_output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace lumenfold::film {

namespace {

// Written out for every lane, so that the compiler keeps them all in registers.
template <std::size_t... lanes>
std::array<std::uint64_t, hashLanes> hashSideBySide(const std::array<const Pixel32*, hashLanes>& pictures,
                                                    std::size_t count, std::index_sequence<lanes...>) {
    constexpr std::uint64_t offset = 14695981039346656037U;
    constexpr std::uint64_t prime = 1099511628211U;
    std::array<std::uint64_t, hashLanes> hashes;
    hashes.fill(offset);
    for (std::size_t i = 0; i < count; ++i)
        for (const int shift : {0, 8, 16})
            ((hashes[lanes] = (hashes[lanes] ^ (pictures[lanes][i] >> shift & 0xFF)) * prime), ...);
    return hashes;
}

} // namespace

std::array<std::uint64_t, hashLanes> hashPictures(const std::array<const Pixel32*, hashLanes>& pictures,
                                                  std::size_t count) {
    return hashSideBySide(pictures, count, std::make_index_sequence<hashLanes>());
}

namespace {

class HashLines : public Output {
  public:
    explicit HashLines(std::FILE* file) : stream(file) {}
    HashLines(const HashLines&) = delete;
    HashLines& operator=(const HashLines&) = delete;

    // What was shown before an error ended the film is printed too.
    ~HashLines() override { print(); }

    void frame(const Frame& frame) override {
        Pending& slot = pending[filled++];
        slot.frame = frame;
        slot.pixels.assign(frame.pixels, frame.pixels + frame.width * frame.height);
        if (filled == hashLanes && !print())
            fail();
    }

    void finish() override {
        if (!print() || std::fflush(stream) != 0)
            fail();
    }

  private:
    struct Pending {
        Frame frame{};
        std::vector<Pixel32> pixels;
    };

    [[noreturn]] static void fail() {
        throw std::runtime_error(std::string("the hashes cannot be written: ") + std::strerror(errno));
    }

    // False if they could not be written.
    bool print() {
        if (filled == 0)
            return true;
        std::array<const Pixel32*, hashLanes> pictures;
        for (std::size_t lane = 0; lane < hashLanes; ++lane)
            pictures[lane] = pending[lane < filled ? lane : 0].pixels.data();
        const auto hashes = hashPictures(pictures, pending[0].pixels.size());
        for (std::size_t lane = 0; lane < filled; ++lane)
            std::fprintf(stream, "%lld %.9g %d %016llx\n", static_cast<long long>(pending[lane].frame.number),
                         static_cast<double>(pending[lane].frame.time), pending[lane].frame.part,
                         static_cast<unsigned long long>(hashes[lane]));
        filled = 0;
        return std::ferror(stream) == 0;
    }

    std::FILE* stream;
    std::array<Pending, hashLanes> pending;
    std::size_t filled = 0;
};

} // namespace

std::unique_ptr<Output> makeHashLines(std::FILE* stream) {
    return std::make_unique<HashLines>(stream);
}

} // namespace lumenfold::film
