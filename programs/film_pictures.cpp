#include "programs/film_output.h"
#include "programs/png_file.h"
#include "programs/system.h"

#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <vector>

namespace lumenfold::film {

namespace fs = std::filesystem;

namespace {

bool isFrameName(const std::string& name) {
    return name.size() > 9 && name.rfind("frame", 0) == 0 && name.substr(name.size() - 4) == ".png" &&
           name.find_first_not_of("0123456789", 5) == name.size() - 4;
}

std::size_t countPictures(const fs::path& folder) {
    std::size_t count = 0;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error))
        count += isFrameName(entry.path().filename().string()) ? 1U : 0U;
    return count;
}

// The pictures wait in a folder of their own until the film is over, and then move to their place.
class PictureFolder : public Output {
  public:
    explicit PictureFolder(const std::string& path)
        : folder(fs::path(path).has_filename() ? fs::path(path) : fs::path(path).parent_path()),
          waiting(folder / (".part" + std::to_string(processNumber()))) {
        std::error_code error;
        if (fs::exists(folder, error) && !fs::is_directory(folder, error))
            throw std::runtime_error(path + ": is there already and not a folder");
        fs::path nearest = fs::absolute(folder).lexically_normal();
        while (!fs::exists(nearest, error) && nearest.has_relative_path())
            nearest = nearest.parent_path();
        if (!writable((nearest / "frame").string()))
            throw std::runtime_error(path + ": cannot be made or written: no permission in " + nearest.string());
        if (const std::size_t earlier = countPictures(folder); earlier > 0)
            std::fprintf(stderr, "%s: holds %zu pictures of an earlier run; those of the same numbers are replaced\n",
                         folder.string().c_str(), earlier);
    }

    ~PictureFolder() override {
        std::error_code error;
        fs::remove_all(waiting, error);
        for (; !made.empty(); made.pop_back())
            fs::remove(made.back(), error); // only if it is empty
    }
    PictureFolder(const PictureFolder&) = delete;
    PictureFolder& operator=(const PictureFolder&) = delete;

    void frame(const Frame& frame) override {
        if (names.empty())
            makeFolders();
        char name[32];
        std::snprintf(name, sizeof name, "frame%06lld.png", static_cast<long long>(frame.number));
        names.emplace_back(name);
        writePng((waiting / name).string(), frame.pixels, frame.width, frame.height, (folder / name).string());
    }

    void finish() override {
        for (const std::string& name : names) {
            std::error_code error;
            fs::rename(waiting / name, folder / name, error);
            if (error)
                throw std::runtime_error((folder / name).string() + ": " + error.message());
        }
    }

    std::string written() const override {
        const std::size_t others = countPictures(folder) - names.size();
        return folder.string() + ": " + std::to_string(names.size()) + " pictures" +
               (others > 0 ? ", beside " + std::to_string(others) + " of an earlier run" : "");
    }

  private:
    void makeFolders() {
        std::error_code error;
        std::vector<fs::path> missing{waiting};
        for (fs::path path = folder; !path.empty() && !fs::exists(path, error); path = path.parent_path())
            missing.push_back(path);
        for (; !missing.empty(); missing.pop_back()) {
            if (fs::create_directory(missing.back(), error))
                made.push_back(missing.back());
            if (error)
                throw std::runtime_error(folder.string() + ": cannot be made: " + error.message());
        }
    }

    fs::path folder;
    fs::path waiting;
    std::vector<fs::path> made; // by this run
    std::vector<std::string> names;
};

} // namespace

std::unique_ptr<Output> makePictureFolder(const std::string& folder) {
    return std::make_unique<PictureFolder>(folder);
}

} // namespace lumenfold::film
