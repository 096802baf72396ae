#pragma once

#include "programs/film_output.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace lumenfold::test {

// Some film, and how lumenfold-film makes the same one.
struct Footage {
    std::string name;                   // "twinTunnel", "show"
    std::vector<std::string> arguments; // without range and output
    std::int32_t fps;
};

// The hash of every frame of some films, kept in a binary file of this folder. For each film: its name and the number
// of its frames, each ended by a newline, then four bytes a frame, the lowest first.
class GoldenFile {
  public:
    // Set by --update: the file is written anew instead of compared.
    static bool updating;
    // Set by --against: the revision that a different frame is compared with; empty: none.
    static std::string against;

    explicit GoldenFile(const std::string& name);

    // Compares the next frame of the film. Writes the picture of the first one that differs to the build folder.
    void check(const Footage& footage, const film::Frame& frame, const std::string& moment);

    // The film is over. If it differs the test fails with the first frame that does, and the number of those that do.
    void endFilm(const Footage& footage);

    // The test is over: films that were never shown are a failure too; with --update the file is written.
    void finish();

  private:
    struct Difference {
        std::int64_t frame = 0;
        std::int64_t count = 0; // of different frames
        std::string moment;
        std::string picture;
    };

    std::string path;
    std::map<std::string, std::vector<std::uint32_t>> expected; // films, their hashes
    std::map<std::string, std::vector<std::uint32_t>> seen;
    std::map<std::string, Difference> differences;
};

} // namespace lumenfold::test
