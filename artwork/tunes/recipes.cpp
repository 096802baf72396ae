#include <fstream>
#include <stdexcept>

#include "artwork/tunes/parts.h"
#include "forge/recipe.h"

namespace lumenfold::art {
namespace {

void write(const XmSong& song, const std::string& path) {
    const std::vector<std::uint8_t> bytes = writeXm(song);
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!file) {
        throw std::runtime_error("cannot write " + path);
    }
}

} // namespace

std::vector<Recipe> tuneRecipes() {
    return {
        {"bzzzz.xm", true, [](const std::string& path) { write(demoTune(), path); }},
        {"endtune.xm", true, [](const std::string& path) { write(endTune(), path); }},
    };
}

} // namespace lumenfold::art
