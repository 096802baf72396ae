#include "programs/pipes.h"

#include "programs/windows/windows.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <stdexcept>

namespace lumenfold::film {

namespace {

constexpr DWORD pipeBytes = 1 << 20;

HANDLE handleOf(Handle handle) {
    return reinterpret_cast<HANDLE>(handle);
}

// One argument as the C runtime of the other program reads it: in quotes, with a backslash before each inner quote and
// every backslash that stands before a quote doubled.
std::wstring quoted(const std::string& argument) {
    std::wstring text = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t letter : std::filesystem::u8path(argument).wstring() + L'"') {
        if (letter == L'"')
            text.append(backslashes, L'\\');
        backslashes = letter == L'\\' ? backslashes + 1 : 0;
        text += letter;
    }
    return text;
}

// How one C runtime tells another which descriptors are open: their number, a byte of flags for each, their handles.
std::vector<BYTE> descriptorBlock(const std::array<Handle, 4>& descriptors) {
    constexpr BYTE openPipeFlags = 0x01 | 0x08;
    const auto count = static_cast<std::int32_t>(descriptors.size());
    std::vector<BYTE> block(sizeof count + descriptors.size() * (1 + sizeof(HANDLE)), openPipeFlags);
    std::memcpy(block.data(), &count, sizeof count);
    std::memcpy(block.data() + sizeof count + descriptors.size(), descriptors.data(), sizeof descriptors);
    return block;
}

} // namespace

Pipe openPipe() {
    HANDLE readEnd = nullptr;
    HANDLE writeEnd = nullptr;
    if (CreatePipe(&readEnd, &writeEnd, nullptr, pipeBytes) == 0)
        throw std::runtime_error("no pipe: " + lastErrorText());
    return {reinterpret_cast<Handle>(readEnd), reinterpret_cast<Handle>(writeEnd)};
}

Handle openNowhere() {
    return reinterpret_cast<Handle>(
        CreateFileW(L"NUL", GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
}

void closeHandle(Handle handle) {
    CloseHandle(handleOf(handle));
}

void setWaiting(Handle end, bool waits) {
    DWORD mode = PIPE_READMODE_BYTE | (waits ? PIPE_WAIT : PIPE_NOWAIT);
    SetNamedPipeHandleState(handleOf(end), &mode, nullptr, nullptr);
}

std::ptrdiff_t writeSome(Handle end, const std::uint8_t* bytes, std::size_t size) {
    // what does not fit as a whole may not be taken at all
    constexpr std::size_t portion = 1 << 16;
    DWORD written = 0;
    if (WriteFile(handleOf(end), bytes, static_cast<DWORD>(std::min(size, portion)), &written, nullptr) == 0)
        return -1;
    return written;
}

std::size_t readSome(Handle end, char* bytes, std::size_t size) {
    DWORD got = 0;
    return ReadFile(handleOf(end), bytes, static_cast<DWORD>(size), &got, nullptr) != 0 ? got : 0;
}

// Anonymous pipes cannot be waited for: sleeps for a moment, and the caller tries again.
bool waitForPipes(const std::array<Handle, 2>&, Handle input, int milliseconds) {
    DWORD waiting = 0;
    PeekNamedPipe(handleOf(input), nullptr, 0, nullptr, &waiting, nullptr);
    if (waiting == 0 && milliseconds > 0)
        Sleep(1);
    return waiting > 0;
}

Handle startProgram(const std::vector<std::string>& arguments, const std::array<Handle, 4>& descriptors,
                    std::string& reason) {
    std::wstring line;
    for (const std::string& argument : arguments)
        line += (line.empty() ? L"" : L" ") + quoted(argument);
    std::vector<BYTE> block = descriptorBlock(descriptors);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = handleOf(descriptors[0]);
    start.hStdOutput = handleOf(descriptors[1]);
    start.hStdError = handleOf(descriptors[2]);
    start.cbReserved2 = static_cast<WORD>(block.size());
    start.lpReserved2 = block.data();
    for (const Handle descriptor : descriptors)
        SetHandleInformation(handleOf(descriptor), HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    PROCESS_INFORMATION program{};
    const BOOL started =
        CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_NEW_PROCESS_GROUP | CREATE_NO_WINDOW,
                       nullptr, nullptr, &start, &program);
    if (started == 0) {
        reason = lastErrorText();
        return noHandle;
    }
    CloseHandle(program.hThread);
    return reinterpret_cast<Handle>(program.hProcess);
}

int waitForEnd(Handle program) {
    DWORD status = 1;
    WaitForSingleObject(handleOf(program), INFINITE);
    GetExitCodeProcess(handleOf(program), &status);
    closeHandle(program);
    return static_cast<int>(status);
}

} // namespace lumenfold::film
