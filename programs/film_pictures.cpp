#include "programs/film_output.h"
#include "programs/png_file.h"

#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace lumenfold::film {

namespace {

class PictureFolder : public Output {
  public:
    explicit PictureFolder(const std::string& path) : folder(path) {
        std::error_code error;
        std::filesystem::create_directories(folder, error);
        if (!std::filesystem::is_directory(folder))
            throw std::runtime_error(folder + ": cannot be made: " + error.message());
    }

    void frame(const Frame& frame) override {
        char name[32];
        std::snprintf(name, sizeof name, "frame%06lld.png", static_cast<long long>(frame.number));
        writePng((std::filesystem::path(folder) / name).string(), frame.pixels, frame.width, frame.height);
    }

  private:
    std::string folder;
};

} // namespace

std::unique_ptr<Output> makePictureFolder(const std::string& folder) {
    return std::make_unique<PictureFolder>(folder);
}

} // namespace lumenfold::film
