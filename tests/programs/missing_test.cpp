#include "driver/error_text.h"
#include "programs/film.h"
#include "programs/film_show.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace lumenfold::film {
namespace {

namespace fs = std::filesystem;

// All pictures that the scenes name. (Objects name more of their own.)
const char* const pictures[] = {
    "goodlog512a.jpg", "skum3.jpg",    "circ3.jpg",          "cptext6.pcx",    "bfs1.pcx",      "bfs0.pcx",
    "bkfire.jpg",      "part3bak.jpg", "sidogrej91x351.tga", "bajsa.jpg",      "greets2.pcx",   "morph3.jpg",
    "3dframe.jpg",     "svampbak.jpg", "petrolflare.jpg",    "designfusk.pcx", "endscroll.pcx", "petrolenv.jpg",
    "cell5a.jpg",      "cell1.jpg",    "cells3c.jpg",        "phong5.jpg",     "eftex.jpg",     "cubet5.jpg",
    "cubet4.jpg",      "fdgrid.jpg",   "slem4.jpg",
};

// A folder with links to the show's files, entered for as long as the test runs.
class MissingPicture : public testing::Test {
  protected:
    MissingPicture() {
        fs::remove_all(folder);
        fs::create_directories(folder);
        for (const fs::directory_entry& file : fs::directory_iterator(LUMENFOLD_SHOW))
            fs::create_symlink(file.path(), folder / file.path().filename());
        fs::current_path(folder);
    }
    ~MissingPicture() override {
        fs::current_path(before);
        fs::remove_all(folder);
    }

    const fs::path before = fs::current_path();
    const fs::path folder = fs::path(testing::TempDir()) / "lumenfold_missing_test";
};

TEST_F(MissingPicture, IsNamed) {
    for (const std::string picture : pictures) {
        fs::remove(picture);
        Options options;
        options.to = 0.1;
        Film film(options);
        std::string said = "nothing";
        try {
            filmShow(film, options);
        } catch (const DynamicError& error) {
            said = errorText(error);
        }
        EXPECT_EQ(said, picture + ": not found in " + folder.string());
        fs::create_symlink(fs::path(LUMENFOLD_SHOW) / picture, picture);
    }
}

} // namespace
} // namespace lumenfold::film
