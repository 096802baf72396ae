#include "programs/film_hash.h"

#include "programs/film_output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <future>
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

// The pictures of one pass through hashPictures().
struct Batch {
    struct Picture {
        Frame frame{};
        std::vector<Pixel32> pixels;
    };
    std::array<Picture, hashLanes> pictures;
    std::size_t count = 0;

    // Returns 0, or errno if the lines could not be written.
    int print(std::FILE* stream) const {
        std::array<const Pixel32*, hashLanes> pixels;
        for (std::size_t lane = 0; lane < hashLanes; ++lane)
            pixels[lane] = pictures[lane < count ? lane : 0].pixels.data();
        const auto hashes = hashPictures(pixels, pictures[0].pixels.size());
        for (std::size_t lane = 0; lane < count; ++lane) {
            const Frame& frame = pictures[lane].frame;
            std::fprintf(stream, "%lld %.9g %d %016llx\n", static_cast<long long>(frame.number),
                         static_cast<double>(frame.time), frame.part, static_cast<unsigned long long>(hashes[lane]));
        }
        return std::ferror(stream) == 0 ? 0 : errno;
    }
};

// One batch is hashed and printed by another thread while the next one is drawn.
class HashLines : public Output {
  public:
    explicit HashLines(std::FILE* file) : stream(file) {}
    HashLines(const HashLines&) = delete;
    HashLines& operator=(const HashLines&) = delete;

    // What was shown before an error ended the film is printed too.
    ~HashLines() override { printAll(); }

    void frame(const Frame& frame) override {
        Batch::Picture& picture = filling.pictures[filling.count++];
        picture.frame = frame;
        picture.pixels.assign(frame.pixels, frame.pixels + frame.width * frame.height);
        if (filling.count == hashLanes)
            check(handOn());
    }

    void finish() override {
        check(printAll());
        check(std::fflush(stream) == 0 ? 0 : errno);
    }

  private:
#if defined(__EMSCRIPTEN__) // has no threads
    static constexpr std::launch policy = std::launch::deferred;
#else
    static constexpr std::launch policy = std::launch::async;
#endif

    static void check(int error) {
        if (error != 0)
            throw std::runtime_error(std::string("the hashes cannot be written: ") + std::strerror(error));
    }

    // Waits for the batch before, and lets the other thread have this one. Returns what became of the one before.
    int handOn() {
        const int error = printed.valid() ? printed.get() : 0;
        std::swap(filling, printing);
        filling.count = 0;
        printed = std::async(policy, [this] { return printing.print(stream); });
        return error;
    }

    int printAll() {
        const int before = filling.count > 0 ? handOn() : 0;
        const int last = printed.valid() ? printed.get() : 0;
        return before != 0 ? before : last;
    }

    std::FILE* stream;
    Batch filling;
    Batch printing;           // belongs to the other thread until printed is ready
    std::future<int> printed; // destroyed first: it waits
};

} // namespace

std::unique_ptr<Output> makeHashLines(std::FILE* stream) {
    return std::make_unique<HashLines>(stream);
}

} // namespace lumenfold::film
