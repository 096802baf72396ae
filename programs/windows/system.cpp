#include "programs/system.h"

#include "programs/windows/windows.h"

#include <atomic>
#include <fcntl.h>
#include <filesystem>
#include <io.h>
#include <stdexcept>

namespace lumenfold::film {

namespace {

constexpr int outputDescriptor = 1;

std::atomic<bool> interruptSeen{false};

BOOL WINAPI noteInterrupt(DWORD) {
    interruptSeen = true;
    return TRUE;
}

} // namespace

// Without the carriage returns of text files: the same bytes on every system.
std::FILE* separateOutput() {
    std::fflush(stdout);
    const int copy = _dup(outputDescriptor);
    std::FILE* own = copy < 0 ? nullptr : _fdopen(copy, "wb");
    std::FILE* nowhere = std::fopen("NUL", "w");
    if (own == nullptr || nowhere == nullptr)
        throw std::runtime_error("standard output cannot be opened again");
    _setmode(copy, _O_BINARY);
    _dup2(_fileno(nowhere), outputDescriptor);
    std::fclose(nowhere);
    return own;
}

void catchInterrupts() {
    SetConsoleCtrlHandler(noteInterrupt, TRUE);
}

bool interrupted() {
    return interruptSeen;
}

int terminalColumns() {
    CONSOLE_SCREEN_BUFFER_INFO screen{};
    const bool terminal = GetConsoleScreenBufferInfo(GetStdHandle(STD_ERROR_HANDLE), &screen) != 0;
    return terminal ? screen.srWindow.Right - screen.srWindow.Left + 1 : 0;
}

bool writable(const std::string& path) {
    constexpr int toExist = 0;
    constexpr int toWrite = 2;
    const std::filesystem::path file = path;
    std::error_code error;
    const bool folderTakesIt = !file.has_parent_path() || std::filesystem::is_directory(file.parent_path(), error);
    return folderTakesIt && (_waccess(file.c_str(), toExist) != 0 || _waccess(file.c_str(), toWrite) == 0);
}

bool programExists(const std::string& name) {
    return SearchPathW(nullptr, std::filesystem::path(name).c_str(), L".exe", 0, nullptr, nullptr) != 0;
}

long processNumber() {
    return static_cast<long>(GetCurrentProcessId());
}

} // namespace lumenfold::film
