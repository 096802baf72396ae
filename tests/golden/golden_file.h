#pragma once

#include "programs/film_output.h"

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace lumenfold::test {

// A text file of this folder with one line per moment: its name, and the hash of its picture as `lumenfold-film --hash`
// prints it.
class GoldenFile {
  public:
    // Set by --update: the files are written anew instead of compared.
    static bool updating;

    explicit GoldenFile(const std::string& name);

    // Compares the picture with its line. Where they differ the test fails with the line ready to paste, and the
    // picture is written to the build folder.
    void check(const std::string& moment, const film::Frame& frame);

    // The same for a hash over many pictures.
    void check(const std::string& moment, std::uint64_t hash);

    // The test is over: lines that no moment has asked for are a failure too; with --update the file is written.
    void finish();

  private:
    bool matches(const std::string& moment, std::uint64_t hash);

    std::string path;
    std::map<std::string, std::string> expected; // moments, their hashes
    std::vector<std::string> lines;              // as they are now
};

} // namespace lumenfold::test
