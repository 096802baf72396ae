// What the user reads of an error: the cause is never lost, whatever the file is called.

#include "driver/error_text.h"

#include "assets/file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

namespace lumenfold::test {

namespace fs = std::filesystem;

namespace {

std::string textOf(const std::string& fileName) {
    try {
        requireFile(fileName.c_str());
    } catch (const DynamicError& error) {
        EXPECT_EQ(error.what(), fileName); // the readers' errors are the bare name
        return errorText(error);
    }
    return "";
}

// An empty working directory.
class ErrorText : public ::testing::Test {
  protected:
    void SetUp() override {
        before = fs::current_path();
        folder = fs::path(::testing::TempDir()) / "lumenfold error text";
        fs::create_directory(folder);
        fs::current_path(folder);
        folder = fs::current_path(); // without links
    }
    void TearDown() override {
        fs::current_path(before);
        fs::remove_all(folder);
    }

    fs::path before;
    fs::path folder;
};

} // namespace

TEST_F(ErrorText, NamesTheCauseAndTheFolder) {
    for (const std::string name : {"hall1.jpg", "my picture.jpg", "C:picture.jpg", "a: b.pcx", ""})
        EXPECT_EQ(textOf(name), name + ": not found in " + folder.string());
    fs::create_directory("a folder.tga");
    EXPECT_EQ(textOf("a folder.tga"), "a folder.tga: cannot be read in " + folder.string() + ": Is a directory");
    std::ofstream("hall1.jpg") << "x";
    EXPECT_EQ(textOf("hall1.jpg/x.jpg"), "hall1.jpg/x.jpg: cannot be read in " + folder.string() + ": Not a directory");
    EXPECT_EQ(textOf("/no such/file.jpg"), "/no such/file.jpg: not found");
    EXPECT_EQ(errorText(DynamicError("display: no screen")), "display: no screen");
    EXPECT_EQ(errorText(DynamicError("nonsense")), "nonsense"); // no file, though it looks like one
}

TEST_F(ErrorText, ADeletedWorkingDirectoryIsSaid) {
    fs::remove_all(folder);
    EXPECT_EQ(textOf("hall 1.jpg"), "hall 1.jpg: not found: the working directory has been deleted");
    EXPECT_EQ(textOf("/no such/file.jpg"), "/no such/file.jpg: not found");
}

} // namespace lumenfold::test
