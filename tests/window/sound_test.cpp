#include "tests/platform/tiny_xm.h"
#include "tests/window/sound_server.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <future>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <vector>

// The music layer on real sound servers that fail, seen from outside: tests/window/sound_probe plays two tunes there.

namespace lumenfold::test {
namespace {

using Clock = std::chrono::steady_clock;

constexpr double row = 0.06; // seconds between two sync commands
constexpr int rows = 32;     // the tunes' length; the first one's last command switches to the second

double now() {
    return std::chrono::duration<double>(Clock::now().time_since_epoch()).count();
}

void writeTunes(const std::string& folder) {
    for (const int first : {0, 64}) {
        TinyXm xm{2, 3, 125, 0, {0}, {rows}, {}};
        for (int i = 0; i < rows; ++i)
            xm.commands.push_back({0, i, 0, 0x20, static_cast<std::uint8_t>(first + i), true});
        xm.write(folder + (first == 0 ? "/one.xm" : "/two.xm"));
    }
}

struct Sync {
    int value;
    double time;
};

struct Report {
    std::vector<Sync> syncs;
    double lag = 0.0;  // how late the machine woke a thread, at the worst
    double exit = 0.0; // when all was done
    std::string error;
};

Report readReport(const std::string& file) {
    Report report;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);) {
        std::istringstream words(line);
        std::string what;
        double value = 0.0;
        words >> what >> value;
        if (what == "lag")
            report.lag = value;
        else if (what == "exit")
            report.exit = value;
        else if (what == "error")
            report.error = line;
        else if (!stream.eof())
            report.syncs.push_back({std::stoi(what), value});
    }
    return report;
}

// One run of the probe. Steps that take far too long throw std::runtime_error.
class Probe {
  public:
    Probe(const std::vector<std::string>& environment, const std::string& folder, const std::string& name)
        : output(folder + "/" + name) {
        std::vector<std::string> words = environment;
        words.insert(words.end(), {LUMENFOLD_SOUND_PROBE, folder});
        process = spawn(words, output, output + ".errors");
    }
    ~Probe() {
        if (process > 0) {
            kill(process, SIGKILL);
            waitpid(process, nullptr, 0);
        }
    }
    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;

    void await(const std::function<bool(const Report&)>& condition, const std::string& what) const {
        for (const double end = now() + 30.0; !condition(readReport(output));) {
            if (now() > end)
                throw std::runtime_error("no " + what + " " + errors());
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
        }
    }

    void awaitSyncs(std::size_t more) const {
        const std::size_t goal = readReport(output).syncs.size() + more;
        await([goal](const Report& report) { return report.syncs.size() >= goal; }, "more sync commands");
    }

    void awaitSync(int value) const {
        await(
            [value](const Report& report) {
                return std::any_of(report.syncs.begin(), report.syncs.end(),
                                   [value](const Sync& sync) { return sync.value >= value; });
            },
            "sync command " + std::to_string(value));
    }

    // Presses the key. Returns how long the program took to end, but for the system's part: threads of low priority
    // that have to leave as well may wait long for a processor on a loaded machine.
    double end(int& status) {
        const double pressed = now();
        kill(process, SIGTERM);
        while (waitpid(process, &status, WNOHANG) == 0 && now() < pressed + 20.0)
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        if (now() >= pressed + 20.0)
            throw std::runtime_error("the program does not end " + errors());
        process = 0;
        const double exit = report().exit;
        return (exit > 0.0 ? exit : now()) - pressed;
    }

    Report report() const { return readReport(output); }

    std::string errors() const {
        std::ifstream stream(output + ".errors");
        std::ostringstream text;
        text << stream.rdbuf();
        return "[" + text.str() + "]";
    }

  private:
    std::string output;
    pid_t process = 0;
};

// What is wrong with the sync commands of one run: all of them, each once, neither early nor late.
std::string faultOfSyncs(const Report& report) {
    const double slack = 0.1 + 4.0 * report.lag;
    constexpr double patience = 0.5; // what a device may miss before the tune goes on without it
    std::ostringstream faults;
    std::size_t begin = 0;
    for (std::size_t i = 0; i < report.syncs.size(); ++i) {
        const Sync& sync = report.syncs[i];
        if (i > 0 && report.syncs[i - 1].value < 64 && sync.value >= 64)
            begin = i;
        const int expected = static_cast<int>((i - begin) % rows) + (begin == 0 ? 0 : 64);
        if (sync.value != expected)
            faults << "command " << sync.value << " instead of " << expected << "; ";
        const double due = report.syncs[begin].time + row * static_cast<double>(i - begin);
        if (sync.time < due - patience - slack || sync.time > due + 2.0 * patience + slack)
            faults << "command " << sync.value << " is late by " << sync.time - due << " s; ";
        if (i > begin && sync.time - report.syncs[i - 1].time > row + patience + slack)
            faults << "nothing for " << sync.time - report.syncs[i - 1].time << " s; ";
    }
    return faults.str();
}

std::string faultOfEnd(Probe& probe) {
    int status = 0;
    const double time = probe.end(status);
    const Report report = probe.report();
    std::ostringstream faults;
    if (WIFSIGNALED(status))
        faults << "death by signal " << WTERMSIG(status) << "; ";
    else if (WEXITSTATUS(status) != 0)
        faults << "status " << WEXITSTATUS(status) << " " << report.error << "; ";
    constexpr double wakings = 20.0; // from thread to thread, until a program has ended
    if (time > 1.0 + wakings * report.lag)
        faults << "the key took " << time << " s, threads wake up " << report.lag << " s late; ";
    const std::string all = faults.str() + faultOfSyncs(report);
    return all.empty() ? "" : all + probe.errors();
}

struct Fault {
    std::function<void(SoundServer&)> strike, mend;
};

const std::map<std::string, Fault> faults = {
    {"Killed", {[](SoundServer& server) { server.end(); }, [](SoundServer& server) { server.start(); }}},
    {"Stopped",
     {[](SoundServer& server) { server.signal(SIGSTOP); }, [](SoundServer& server) { server.signal(SIGCONT); }}},
    {"StoppedThenKilled",
     {[](SoundServer& server) { server.signal(SIGSTOP); },
      [](SoundServer& server) {
          server.end();
          server.start();
      }}},
    {"Restarted",
     {[](SoundServer& server) {
          server.end();
          server.start();
      },
      [](SoundServer&) {}}},
    {"LastSinkGone",
     {[](SoundServer& server) { server.control("unload-module module-null-sink"); },
      [](SoundServer& server) { server.control("load-module module-null-sink sink_name=two"); }}},
    {"DefaultSinkChanged",
     {[](SoundServer& server) {
          server.control("load-module module-null-sink sink_name=two");
          server.control("set-default-sink two");
      },
      [](SoundServer& server) { server.control("set-default-sink one"); }}},
    {"SinkSuspended",
     {[](SoundServer& server) { server.control("suspend-sink @DEFAULT_SINK@ 1"); },
      [](SoundServer& server) { server.control("suspend-sink @DEFAULT_SINK@ 0"); }}},
};

enum class Moment { Start, FirstTune, Switch, Scroller };
const char* const momentNames[] = {"AtTheStart", "InTheFirstTune", "AtTheSwitch", "InTheScroller"};

struct Cell {
    const char* fault;
    Moment moment;
    bool alwaysSink;
    std::string name() const {
        return std::string(fault) + momentNames[static_cast<int>(moment)] + (alwaysSink ? "WithAlwaysSink" : "");
    }
};

// Plays two runs on one server. The fault comes at its moment; one run ends while it lasts, the other plays on until
// there is sound again. Returns what went wrong.
std::string play(const Cell& cell) {
    const Fault& fault = faults.at(cell.fault);
    SoundServer server(cell.alwaysSink);
    writeTunes(server.folder());
    if (cell.moment == Moment::Start)
        fault.strike(server);
    Probe shortRun(server.client(), server.folder(), "short");
    Probe longRun(server.client(), server.folder(), "long");
    constexpr int shortly = 10;
    if (cell.moment == Moment::FirstTune)
        longRun.awaitSync(shortly);
    if (cell.moment == Moment::Switch)
        longRun.awaitSync(rows - 2);
    if (cell.moment == Moment::Scroller)
        longRun.awaitSync(64 + shortly);
    if (cell.moment != Moment::Start)
        fault.strike(server);
    longRun.awaitSyncs(20);
    longRun.awaitSync(64);
    std::string wrong = faultOfEnd(shortRun);
    fault.mend(server);
    if (!server.plays())
        wrong += "the sound does not return; " + longRun.errors();
    longRun.awaitSyncs(20);
    return wrong + faultOfEnd(longRun);
}

// All at once, since they mostly wait. Returns what went wrong in each.
std::string playAll(const std::vector<Cell>& cells) {
    std::vector<std::future<std::string>> results;
    results.reserve(cells.size());
    for (const Cell& cell : cells)
        results.push_back(std::async(std::launch::async, [cell]() -> std::string {
            try {
                return play(cell);
            } catch (const std::runtime_error& error) {
                return error.what();
            }
        }));
    std::string all;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const std::string wrong = results[i].get();
        if (!wrong.empty())
            all += cells[i].name() + ": " + wrong + "\n";
    }
    return all;
}

TEST(SoundServers, MayFailAtAnyTime) {
    const std::string missing = SoundServer::missing();
    if (!missing.empty())
        GTEST_SKIP() << missing << ": lost sound devices are not tested";
    const std::vector<Cell> selection = {
        {"LastSinkGone", Moment::FirstTune, false},
        {"LastSinkGone", Moment::Start, false},
        {"Killed", Moment::Switch, false},
        {"Stopped", Moment::Start, false},
        {"StoppedThenKilled", Moment::Scroller, false},
        {"SinkSuspended", Moment::FirstTune, true},
    };
    const std::string wrong = playAll(selection);
    EXPECT_TRUE(wrong.empty()) << wrong;
}

// LUMENFOLD_SOUND_MATRIX is how many are tried at a time.
TEST(SoundServers, MayFailInEveryWay) {
    const char* parallel = std::getenv("LUMENFOLD_SOUND_MATRIX");
    if (parallel == nullptr || !SoundServer::missing().empty())
        GTEST_SKIP() << "set LUMENFOLD_SOUND_MATRIX=8 to try every fault at every moment";
    std::vector<Cell> cells;
    for (const auto& fault : faults)
        for (const Moment moment : {Moment::Start, Moment::FirstTune, Moment::Switch, Moment::Scroller})
            for (const bool alwaysSink : {false, true})
                cells.push_back({fault.first.c_str(), moment, alwaysSink});
    const auto group = static_cast<std::size_t>(std::max(std::atoi(parallel), 1));
    for (std::size_t i = 0; i < cells.size(); i += group) {
        const auto begin = cells.begin() + static_cast<std::ptrdiff_t>(i);
        const auto end = cells.begin() + static_cast<std::ptrdiff_t>(std::min(i + group, cells.size()));
        const std::string wrong = playAll({begin, end});
        EXPECT_TRUE(wrong.empty()) << wrong;
    }
}

class SilentDriver : public testing::TestWithParam<const char*> {};

// Both keep the time of a real device without making a sound.
INSTANTIATE_TEST_SUITE_P(, SilentDriver, testing::Values("dummy", "disk"),
                         [](const testing::TestParamInfo<const char*>& test) { return std::string(test.param); });

TEST_P(SilentDriver, KeepsTheTunesTime) {
    const std::string folder = testing::TempDir() + "sound_test_" + GetParam();
    ASSERT_EQ(std::system(("rm -rf '" + folder + "' && mkdir '" + folder + "'").c_str()), 0);
    writeTunes(folder);
    Probe probe({"env", std::string("SDL_AUDIODRIVER=") + GetParam(), "SDL_DISKAUDIOFILE=" + folder + "/sound"}, folder,
                "run");
    probe.awaitSync(64 + rows - 1);
    EXPECT_EQ(faultOfEnd(probe), "");
}

TEST(UnknownDriver, IsAnError) {
    const std::string folder = testing::TempDir();
    writeTunes(folder);
    ASSERT_EQ(std::system(("rm -f '" + folder + "unknown'").c_str()), 0);
    Probe probe({"env", "SDL_AUDIODRIVER=nonsense"}, folder, "unknown");
    probe.await([](const Report& report) { return report.exit > 0.0; }, "end");
    const std::string message = probe.report().error;
    EXPECT_EQ(message.rfind("error no sound device (", 0), 0U) << message;
    EXPECT_NE(message.find("SDL_AUDIODRIVER=dummy"), std::string::npos) << message;
}

} // namespace
} // namespace lumenfold::test
