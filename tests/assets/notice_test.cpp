// What the readers say on standard error about files that they do not show as these were meant.

#include "assets/image.h"
#include "assets/lightwave.h"
#include "assets/notice.h"
#include "assets/pcx.h"
#include "assets/tga.h"
#include "jpeg_writer.h"
#include "object_builder.h"
#include "tests/support/temporary_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

namespace lumenfold::test {

using namespace object_builder;

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int width = 12;
constexpr int height = 9;

template <class Action>
std::string saidBy(Action action) {
    testing::internal::CaptureStdout(); // the commentary on objects
    testing::internal::CaptureStderr();
    action();
    testing::internal::GetCapturedStdout();
    return testing::internal::GetCapturedStderr();
}

std::string saidOfPicture(const char* name) {
    std::vector<Pixel32> pixels(width * height);
    return saidBy([&] { loadImage(name, pixels.data(), width, height, {width, height, 0, 0, 0}, 0); });
}

std::string saidOfObject(const char* name) {
    Mesh mesh;
    return saidBy([&] { readLightWaveObject(name, mesh, 1); });
}

// Every file has a name of its own: of each name only the first fault is said.
std::string nextName(const std::string& ending) {
    static int number = 0;
    return "notice " + std::to_string(++number) + ending;
}

// The line is whole: program, file, reason, and nothing else.
void expectSaid(const std::string& said, const std::string& name, const std::string& reason) {
    if (reason.empty()) {
        EXPECT_EQ(said, "");
        return;
    }
    EXPECT_EQ(said.rfind("lumenfold: " + name + ": " + reason, 0), 0u) << said << "instead of " << reason;
    EXPECT_EQ(said.find('\n'), said.size() - 1) << said;
}

Bytes wholePcx() {
    Bytes file(128, 0);
    const std::map<int, int> fields = {{0, 0x0A},      {1, 5},           {2, 1},  {3, 8},
                                       {8, width - 1}, {10, height - 1}, {65, 3}, {66, width}};
    for (const auto& [position, value] : fields)
        file[static_cast<std::size_t>(position)] = static_cast<std::uint8_t>(value);
    file.insert(file.end(), 3 * width * height, 0x55);
    return file;
}

Bytes wholeTga() {
    Bytes file(18, 0);
    file[2] = 2;
    file[12] = width;
    file[14] = height;
    file[16] = 24;
    file.insert(file.end(), 3 * width * height, 0x55);
    return file;
}

Bytes wholeJpeg() {
    return makeJpeg({width, height, {{1, 1}, {1, 1}, {1, 1}}});
}

struct Change {
    Bytes (*whole)();
    const char* ending;
    void (*change)(Bytes& file);
    const char* reason;
};

const Change changes[] = {
    {wholePcx, ".pcx", [](Bytes&) {}, ""},
    {wholePcx, ".pcx", [](Bytes& f) { f[3] = 4, f[65] = 4; }, "a PCX file with 16 bits a pixel; only run-length"},
    {wholePcx, ".pcx", [](Bytes& f) { f[65] = 1; }, "a PCX file with 8 bits a pixel; only"},
    {wholePcx, ".pcx", [](Bytes& f) { f[2] = 0; }, "a PCX file without run-length coding; only"},
    {wholePcx, ".pcx", [](Bytes& f) { f[4] = 2, f[6] = 1, f[10] = 100, f[66] = 10; },
     "the picture is 10 x 100 pixels, not 12 x 9"},
    {wholePcx, ".pcx", [](Bytes& f) { f[66] = 14; }, "a PCX file with padded lines (14 bytes for 12 pixels)"},
    {wholePcx, ".pcx", [](Bytes& f) { f.pop_back(); }, "the file ends before the picture does; nothing is drawn"},
    {wholePcx, ".pcx", [](Bytes& f) { f.clear(); }, "not a PCX file, it is empty; only"},
    {wholePcx, ".pcx", [](Bytes& f) { f = wholeJpeg(); }, "not a PCX file but a JPEG file"},
    {wholeTga, ".tga", [](Bytes&) {}, ""},
    {wholeTga, ".tga", [](Bytes& f) { f[2] = 10; }, "a run-length coded TGA file; only uncompressed 24-bit TGA"},
    {wholeTga, ".tga", [](Bytes& f) { f[2] = 3; }, "a grey TGA file; only"},
    {wholeTga, ".tga", [](Bytes& f) { f[2] = 1; }, "a TGA file with a palette; only"},
    {wholeTga, ".tga", [](Bytes& f) { f[16] = 32; }, "a TGA file with 32 bits a pixel; only"},
    {wholeTga, ".tga", [](Bytes& f) { f[17] = 0x20; }, "a TGA file with its top row first; only"},
    {wholeTga, ".tga", [](Bytes& f) { f[17] = 0x10; }, "a TGA file with its right column first; only"},
    {wholeTga, ".tga", [](Bytes& f) { f[13] = 1; }, "the picture is 268 x 9 pixels, not 12 x 9"},
    {wholeTga, ".tga", [](Bytes& f) { f[0] = 5; }, "a TGA file with an identification field"},
    {wholeTga, ".tga", [](Bytes& f) { f[2] = 'x'; }, "not a TGA file; only"},
    {wholeTga, ".tga", [](Bytes& f) { f.pop_back(); }, "the file ends early; the rest of the picture is black"},
    {wholeTga, ".tga",
     [](Bytes& f) {
         f = {0x89, 'P', 'N', 'G'};
     },
     "not a TGA file but a PNG file; only"},
    {wholeJpeg, ".jpg", [](Bytes&) {}, ""},
    {wholeJpeg, ".jpg", [](Bytes& f) { f = wholePcx(); }, "not a JPEG file but a PCX file; nothing is drawn"},
    {wholeJpeg, ".jpg",
     [](Bytes& f) {
         f = {'h', 'e', 'l', 'l', 'o'};
     },
     "not a JPEG file; nothing is drawn"},
    {wholeJpeg, ".jpg", [](Bytes& f) { f.resize(30); }, "no picture in this JPEG file; nothing is drawn"},
    {wholeJpeg, ".jpg", [](Bytes& f) { f.resize(entropyStart(f) + 9); }, "the file ends early; the rest of"},
    {wholeJpeg, ".jpg",
     [](Bytes& f) {
         f.insert(f.begin() + static_cast<std::ptrdiff_t>(entropyStart(f)), {0xFF, 0, 0xFF, 0, 0xFF, 0});
     },
     "the data is damaged; parts of the picture are missing"},
    {wholeJpeg, ".jpg",
     [](Bytes& f) {
         f = makeJpeg({width, height, {{1, 1}, {1, 1}, {1, 1}, {1, 1}}});
     },
     "CMYK pictures are not supported; the colours are wrong"},
    {wholeJpeg, ".jpg",
     [](Bytes& f) {
         f = makeJpeg({width, height, {{2, 2}}});
     },
     "sampling factors in a grey picture are not supported"},
    {wholeJpeg, ".jpg",
     [](Bytes& f) {
         const Bytes adobe = {0xFF, 0xEE, 0, 14, 'A', 'd', 'o', 'b', 'e', 0, 100, 0, 0, 0, 0, 0};
         f.insert(f.begin() + 2, adobe.begin(), adobe.end());
     },
     "RGB in JPEG is not supported; the colours are wrong"},
    {wholeTga, ".jpeg", [](Bytes&) {}, "the name ends in none of jpg, pcx and tga; nothing is drawn"},
};

} // namespace

TEST(Notice, PicturesOutsideTheSubset) {
    for (const Change& change : changes) {
        Bytes bytes = change.whole();
        change.change(bytes);
        const TemporaryFile file(nextName(change.ending), bytes);
        expectSaid(saidOfPicture(file.name()), file.name(), change.reason);
        EXPECT_EQ(saidOfPicture(file.name()), "") << "once for each file";
    }
}

TEST(Notice, ObjectsOfWhichNothingOrNotAllIsDrawn) {
    const std::string points = chunk("PNTS", vector(0, 0, 0) + vector(1, 0, 0) + vector(0, 1, 0) + vector(1, 1, 0));
    const std::string triangle = polygon({0, 1, 2}, 1);
    const std::string square = polygon({0, 1, 2, 3}, 1);
    const struct {
        std::string bytes;
        const char* reason;
    } cases[] = {
        {object(points + chunk("POLS", triangle)), ""},
        {object(points), "an object without faces"},
        {object(points + chunk("POLS", "")), "an object without faces"},
        {object(points + chunk("POLS", square)), "an object without triangles; other faces are not read"},
        {object(points + chunk("POLS", square + triangle + square)),
         "faces that are not triangles are left out: 2 of 3"},
        {object(points + chunk("POLS", triangle + polygon({0, 1, 9}, 1))),
         "faces that lack a point are left out: 1 of 2"},
        {object(points + "POLS" + u32(100) + triangle), "the file ends before the object's faces"},
        {object(points + chunk("POLS", triangle) + "SURF" + u32(100)), "the file ends early; what is missing"},
        {chunk("FORM", "LWO2" + points), "a LightWave file of type LWO2; only type LWOB is read"},
        {chunk("FORM", "ILBM" + points), "not a LightWave object"},
        {std::string("\xFF\xD8\xFF\xE0 a picture", 14), "not a LightWave file but a JPEG file"},
        {"", "not a LightWave file, it is empty"},
    };
    for (const auto& c : cases) {
        const TemporaryFile file(nextName(".lwo"), c.bytes);
        expectSaid(saidOfObject(file.name()), file.name(), c.reason);
        EXPECT_EQ(saidOfObject(file.name()), "") << "once for each file";
    }
    const std::string missing = "an absent object.lwo";
    expectSaid(saidOfObject(missing.c_str()), missing,
               "not found in " + std::filesystem::current_path().string() + "; nothing is drawn in its place");
}

// Pictures of a game: 8 bits a pixel, all of them.
TEST(Notice, PicturesOfAPackage) {
    const std::filesystem::path folder = "/usr/share/games/heroes/pics";
    if (!std::filesystem::exists(folder))
        GTEST_SKIP() << "heroes-data is not installed";
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().string();
        if (entry.path().extension() != ".pcx")
            continue;
        expectSaid(saidOfPicture(name.c_str()), name, "a PCX file with 8 bits a pixel");
        ++count;
    }
    EXPECT_GE(count, 20);
}

} // namespace lumenfold::test
