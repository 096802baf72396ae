// The demo's music without its pictures, for the tests of sound: plays FOLDER/one.xm, switches to FOLDER/two.xm at the
// sync command with the value 31 and ends at SIGTERM, which stands for a key. Prints a line for every sync command:
// its value and when it came, in seconds of the steady clock; at the end how late a thread wakes up that does nothing
// but sleep, and when the program has done all its work.
//   sound_probe FOLDER

#include "driver/midas.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

std::atomic<bool> key = false;
std::atomic<bool> switchDue = false;

double seconds(Clock::duration time) {
    return std::chrono::duration<double>(time).count();
}

void print(const char* what, double value) {
    std::printf("%s %.4f\n", what, value);
    std::fflush(stdout);
}

void onSync(std::uint32_t value, std::uint32_t, std::uint32_t) {
    print(std::to_string(value).c_str(), seconds(Clock::now().time_since_epoch()));
    if (value == 31)
        switchDue = true;
}

struct Tune {
    lumenfold::MIDASmodule module = nullptr;
    lumenfold::MIDASmodulePlayHandle handle = 0;

    bool start(const std::string& file) {
        lumenfold::MIDASstartup();
        if (!lumenfold::MIDASinit() || !lumenfold::MIDASstartBackgroundPlay(100) || !lumenfold::MIDASopenChannels(32))
            return false;
        module = lumenfold::MIDASloadModule(file.c_str());
        handle = module == nullptr ? 0 : lumenfold::MIDASplayModule(module, true);
        return handle != 0 && lumenfold::MIDASsetMusicSyncCallback(handle, onSync);
    }
    bool stop() const {
        return lumenfold::MIDASstopModule(handle) && lumenfold::MIDASfreeModule(module) &&
               lumenfold::MIDASstopBackgroundPlay() && lumenfold::MIDASclose();
    }
};

bool play(const std::string& folder) {
    Tune tune;
    if (!tune.start(folder + "/one.xm"))
        return false;
    for (bool switched = false; !key; std::this_thread::sleep_for(std::chrono::milliseconds(1)))
        if (switchDue && !switched) {
            switched = true;
            if (!tune.stop() || !tune.start(folder + "/two.xm"))
                return false;
        }
    return tune.stop();
}

} // namespace

int main(int count, char** words) {
    if (count != 2)
        return 3;
    std::signal(SIGTERM, [](int) { key = true; });
    std::atexit([] { print("exit", seconds(Clock::now().time_since_epoch())); }); // after everything else
    std::atomic<bool> ending = false;
    double lag = 0.0;
    std::thread sleeper([&] {
        constexpr std::chrono::milliseconds nap{5};
        while (!ending) {
            const Clock::time_point before = Clock::now();
            std::this_thread::sleep_for(nap);
            lag = std::max(lag, seconds(Clock::now() - before - nap));
        }
    });
    const bool played = play(words[1]);
    ending = true;
    sleeper.join();
    if (!played)
        std::printf("error %s\n", lumenfold::MIDASgetErrorMessage(lumenfold::MIDASgetLastError()));
    print("lag", lag);
    return played ? 0 : 2;
}
