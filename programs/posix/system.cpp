#include "programs/system.h"

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <sys/ioctl.h>
#include <unistd.h>

namespace lumenfold::film {

namespace {

volatile std::sig_atomic_t interruptSeen = 0;

void noteInterrupt(int) {
    interruptSeen = 1;
}

} // namespace

std::FILE* separateOutput() {
    std::fflush(stdout);
    std::FILE* own = fdopen(dup(STDOUT_FILENO), "w");
    std::FILE* nowhere = std::fopen("/dev/null", "w");
    if (own == nullptr || nowhere == nullptr)
        throw std::runtime_error("standard output cannot be opened again");
    dup2(fileno(nowhere), STDOUT_FILENO);
    std::fclose(nowhere);
    return own;
}

void catchInterrupts() {
    for (const int number : {SIGINT, SIGTERM, SIGHUP})
        if (std::signal(number, noteInterrupt) == SIG_IGN)
            std::signal(number, SIG_IGN); // nohup, or a job in the background
    std::signal(SIGPIPE, SIG_IGN);
}

bool interrupted() {
    return interruptSeen != 0;
}

int terminalColumns() {
    constexpr int usual = 80;
    if (isatty(STDERR_FILENO) == 0)
        return 0;
    winsize size{};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

bool writable(const std::string& path) {
    const std::filesystem::path folder = std::filesystem::path(path).parent_path();
    const bool folderTakesIt = access(folder.empty() ? "." : folder.c_str(), W_OK | X_OK) == 0;
    return folderTakesIt && (access(path.c_str(), F_OK) != 0 || access(path.c_str(), W_OK) == 0);
}

bool programExists(const std::string& name) {
    const char* const search = std::getenv("PATH");
    std::string folders = search != nullptr ? search : "/usr/local/bin:/usr/bin:/bin";
    folders += ':';
    for (std::size_t begin = 0; begin < folders.size();) {
        const std::size_t end = folders.find(':', begin);
        const std::filesystem::path program = std::filesystem::path(folders.substr(begin, end - begin)) / name;
        if (access(program.c_str(), X_OK) == 0)
            return true;
        begin = end + 1;
    }
    return false;
}

long processNumber() {
    return getpid();
}

} // namespace lumenfold::film
