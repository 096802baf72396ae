#include "programs/pipes.h"

#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace lumenfold::film {

namespace {

int descriptorOf(Handle handle) {
    return static_cast<int>(handle);
}

} // namespace

Pipe openPipe() {
    std::signal(SIGPIPE, SIG_IGN);
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error(std::string("no pipe: ") + std::strerror(errno));
    return {ends[0], ends[1]};
}

Handle openNowhere() {
    return open("/dev/null", O_WRONLY | O_CLOEXEC);
}

void closeHandle(Handle handle) {
    close(descriptorOf(handle));
}

void setWaiting(Handle end, bool waits) {
    fcntl(descriptorOf(end), F_SETFL, waits ? 0 : O_NONBLOCK);
}

std::ptrdiff_t writeSome(Handle end, const std::uint8_t* bytes, std::size_t size) {
    const ssize_t written = write(descriptorOf(end), bytes, size);
    return written < 0 && (errno == EAGAIN || errno == EINTR) ? 0 : written;
}

std::size_t readSome(Handle end, char* bytes, std::size_t size) {
    const ssize_t got = read(descriptorOf(end), bytes, size);
    return got > 0 ? static_cast<std::size_t>(got) : 0;
}

bool waitForPipes(const std::array<Handle, 2>& outputs, Handle input, int milliseconds) {
    std::array<pollfd, 3> polled{};
    for (std::size_t i = 0; i < outputs.size(); ++i)
        polled[i] = {descriptorOf(outputs[i]), POLLOUT, 0};
    polled[2] = {descriptorOf(input), POLLIN, 0};
    poll(polled.data(), polled.size(), milliseconds);
    return (polled[2].revents & POLLIN) != 0;
}

// In the child the descriptors stand at their places; everything else closes by itself.
Handle startProgram(const std::vector<std::string>& arguments, const std::array<Handle, 4>& descriptors,
                    std::string& reason) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    std::array<int, 4> high{}; // out of the way of the places 0 to 3
    for (std::size_t i = 0; i < high.size(); ++i)
        high[i] = fcntl(descriptorOf(descriptors[i]), F_DUPFD_CLOEXEC, 10);
    for (std::size_t i = 0; i < high.size(); ++i)
        posix_spawn_file_actions_adddup2(&actions, high[i], static_cast<int>(i));
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGDEF);
    posix_spawnattr_setpgroup(&attributes, 0);
    sigset_t defaults;
    sigemptyset(&defaults);
    sigaddset(&defaults, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &defaults);
    std::vector<char*> words;
    for (const std::string& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    pid_t child = -1;
    const int error = posix_spawnp(&child, words[0], &actions, &attributes, words.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    for (const int descriptor : high)
        close(descriptor);
    if (error == 0)
        return child;
    reason = std::strerror(error);
    return noHandle;
}

int waitForEnd(Handle program) {
    int status = 0;
    waitpid(static_cast<pid_t>(program), &status, 0);
    return status;
}

} // namespace lumenfold::film
