#include "tests/window/virtual_screen.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace lumenfold::test {
namespace {

namespace fs = std::filesystem;

// The program itself, in a folder that holds links to the show's files.
class Program : public testing::Test {
  protected:
    void SetUp() override {
        if (!screen.missing().empty())
            GTEST_SKIP() << screen.missing() << ": the program is not tested";
        setenv("SDL_AUDIODRIVER", "dummy", 1);
        fs::remove_all(folder);
        fs::create_directories(folder);
        for (const fs::directory_entry& file : fs::directory_iterator(LUMENFOLD_SHOW))
            fs::create_symlink(file.path(), folder / file.path().filename());
    }

    // Errors before standard output, whose last lines alone are kept; 124 stands for a program that hangs.
    std::string run(int& status, const std::string& meanwhile = "") const {
        const std::string command = "cd '" + folder.string() + "' && { " + meanwhile +
                                    " timeout 20 " LUMENFOLD_PROGRAM " 2>&1 >out; status=$?; tail -n 2 out; "
                                    "exit $status; }";
        return outputOf(command, &status);
    }

    VirtualScreen screen;
    fs::path folder = fs::path(testing::TempDir()) / "lumenfold_program_test";
};

TEST_F(Program, AKeyEndsIt) {
    int status = -1;
    const auto begin = std::chrono::steady_clock::now();
    run(status, "(sleep 3; xdotool key space) &");
    EXPECT_EQ(status, 0);
    EXPECT_LT(std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count(),
              3.0 + 12.0); // a loaded machine starts slowly; the show takes eight minutes
}

TEST_F(Program, StandardOutputNeverHoldsItUp) {
    for (const char* output : {">&-", ">/dev/full", "2>&1 | sleep 5"}) { // closed, full, and a pipe that nobody reads
        int status = -1;
        outputOf("cd '" + folder.string() + "' && (sleep 2.5; xdotool key space) & cd '" + folder.string() +
                     "' && timeout 20 " LUMENFOLD_PROGRAM " " + output + "; exit $?",
                 &status);
        EXPECT_EQ(status, 0) << output;
    }
}

TEST_F(Program, AHangUpEndsIt) {
    int status = -1;
    outputOf("cd '" + folder.string() +
                 "' && { " LUMENFOLD_PROGRAM " >/dev/null 2>&1 & p=$!; sleep 2.5; kill -HUP $p; "
                 "wait $p; exit $?; }",
             &status);
    EXPECT_EQ(status, 0);
}

TEST_F(Program, NamesAMissingPicture) {
    for (const std::string picture : {"goodlog512a.jpg", "slem4.jpg"}) { // the first and the last that are read
        fs::remove(folder / picture);
        int status = -1;
        const std::string said = run(status);
        EXPECT_EQ(status, 0) << picture;
        EXPECT_NE(said.find("lumenfold: " + picture + ": not found in " + folder.string()), std::string::npos)
            << picture << " " << said;
        fs::create_symlink(fs::path(LUMENFOLD_SHOW) / picture, folder / picture);
    }
}

TEST_F(Program, EndsWithItsMessageBox) {
    fs::remove(folder / "goodlog512a.jpg");
    int status = -1;
    outputOf("cd '" + folder.string() +
                 "' && { LUMENFOLD_MESSAGE_BOX=1 " LUMENFOLD_PROGRAM " >/dev/null 2>&1 & p=$!; box=; "
                 "for i in $(seq 200); do box=$(pgrep -P $p) && break; sleep 0.1; done; sleep 0.5; " // a child shows it
                 "kill -TERM $p $box; wait $p; exit $?; }",
             &status);
    EXPECT_EQ(status, 128 + SIGTERM);
}

TEST_F(Program, PlaysForSomebodyOnly) {
    if (fs::exists("/dev/dri"))
        GTEST_SKIP() << "there may be a screen without a display server";
    int status = -1;
    const std::string said = run(status, "unset DISPLAY WAYLAND_DISPLAY SDL_VIDEODRIVER;");
    EXPECT_NE(said.find("lumenfold: display: no screen: "), std::string::npos) << said;
    EXPECT_EQ(status, 0);
}

TEST_F(Program, EndsWithTheCauseWhenTheTuneIsMissingOrCut) {
    int status = -1;
    fs::remove(folder / "bzzzz.xm");
    EXPECT_NE(run(status).find("\nMIDAS error: bzzzz.xm: cannot be opened: No such file or directory\n"),
              std::string::npos);
    EXPECT_EQ(status, 1);
    fs::copy_file(fs::path(LUMENFOLD_SHOW) / "bzzzz.xm", folder / "bzzzz.xm");
    fs::resize_file(folder / "bzzzz.xm", 10000);
    EXPECT_NE(run(status).find("\nMIDAS error: bzzzz.xm: the file ends before its patterns do\n"), std::string::npos);
    EXPECT_EQ(status, 1);
}

} // namespace
} // namespace lumenfold::test
