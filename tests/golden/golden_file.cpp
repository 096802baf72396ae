#include "golden_file.h"

#include "frame_hash.h"
#include "programs/png_file.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

namespace lumenfold::test {

namespace {

std::vector<std::uint32_t> readHashes(std::istream& file, std::size_t count) {
    std::vector<std::uint32_t> hashes(count);
    for (std::uint32_t& hash : hashes) {
        unsigned char bytes[4] = {};
        file.read(reinterpret_cast<char*>(bytes), sizeof bytes);
        hash = bytes[0] | bytes[1] << 8 | bytes[2] << 16 | static_cast<std::uint32_t>(bytes[3]) << 24;
    }
    return hashes;
}

void writeHashes(std::ostream& file, const std::vector<std::uint32_t>& hashes) {
    for (const std::uint32_t hash : hashes)
        for (int shift = 0; shift < 32; shift += 8)
            file.put(static_cast<char>(hash >> shift & 0xFF));
}

std::string inQuotes(const std::string& word) {
    return "'" + word + "'"; // no word here has a quote of its own
}

// Lets against.sh film the frame with the older revision and compare the two pictures.
void compareWithRevision(const Footage& footage, std::int64_t frame, const std::string& picture) {
    std::string command = inQuotes(LUMENFOLD_TEST_DATA "/against.sh") + " " + inQuotes(GoldenFile::against) + " " +
                          inQuotes(picture) + " " + std::to_string(frame) + " " + std::to_string(footage.fps);
    for (const std::string& argument : footage.arguments)
        command += " " + inQuotes(argument);
    if (std::system(command.c_str()) != 0)
        ADD_FAILURE() << "the picture of " << GoldenFile::against << " could not be made";
}

} // namespace

bool GoldenFile::updating = false;
std::string GoldenFile::against;

GoldenFile::GoldenFile(const std::string& name) : path(LUMENFOLD_TEST_DATA "/" + name) {
    std::ifstream file(path, std::ios::binary);
    std::string count;
    for (std::string film; std::getline(file, film) && std::getline(file, count);)
        expected[film] = readHashes(file, std::stoul(count));
}

void GoldenFile::check(const Footage& footage, const film::Frame& frame, const std::string& moment) {
    std::vector<std::uint32_t>& hashes = seen[footage.name];
    const std::vector<std::uint32_t>& golden = expected[footage.name];
    hashes.push_back(frameHash(frame));
    const std::size_t index = hashes.size() - 1;
    if (updating || (index < golden.size() && golden[index] == hashes[index]))
        return;
    Difference& difference = differences[footage.name];
    if (difference.count++ > 0)
        return;
    difference.frame = frame.number;
    difference.moment = moment;
    difference.picture = LUMENFOLD_TEST_OUTPUT "/golden-" + footage.name + "-" + std::to_string(frame.number) + ".png";
    film::writePng(difference.picture, frame.pixels, frame.width, frame.height, difference.picture);
}

void GoldenFile::endFilm(const Footage& footage) {
    if (updating)
        return;
    EXPECT_EQ(seen[footage.name].size(), expected[footage.name].size()) << footage.name << ": frames";
    const auto found = differences.find(footage.name);
    if (found == differences.end())
        return;
    const Difference& difference = found->second;
    ADD_FAILURE() << footage.name << ": " << difference.count << " of " << seen[footage.name].size()
                  << " frames differ, the first is " << difference.frame << " (" << difference.moment << ")\nsee "
                  << difference.picture;
    if (!against.empty())
        compareWithRevision(footage, difference.frame, difference.picture);
}

void GoldenFile::finish() {
    if (!updating) {
        for (const auto& film : expected)
            EXPECT_TRUE(seen.count(film.first) != 0) << path << ": never shown: " << film.first;
        return;
    }
    std::ofstream file(path, std::ios::binary);
    for (const auto& [film, hashes] : seen) {
        file << film << "\n" << hashes.size() << "\n";
        writeHashes(file, hashes);
    }
    file.close();
    EXPECT_TRUE(file.good()) << path << " cannot be written";
}

} // namespace lumenfold::test
