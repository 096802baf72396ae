#include "programs/pipe_process.h"

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

// Pictures kept while the program works on earlier ones; more only while it waits for more sound.
constexpr std::size_t queuedPictures = 16;
constexpr std::size_t mostPictures = 600;
constexpr int patience = 100; // milliseconds without movement after which it is taken to wait

struct Pipe {
    int readEnd;
    int writeEnd;
};

Pipe openPipe() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        throw std::runtime_error(std::string("no pipe: ") + std::strerror(errno));
    return {ends[0], ends[1]};
}

// In the child the descriptors stand at their places; everything else closes by itself.
pid_t spawn(const std::vector<std::string>& arguments, const std::array<int, 4>& descriptors, int& error) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    std::array<int, 4> high{}; // out of the way of the places 0 to 3
    for (std::size_t i = 0; i < high.size(); ++i)
        high[i] = fcntl(descriptors[i], F_DUPFD_CLOEXEC, 10);
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
    error = posix_spawnp(&child, words[0], &actions, &attributes, words.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    for (const int descriptor : high)
        close(descriptor);
    return child;
}

std::string lastLine(const std::string& text) {
    const std::size_t end = text.find_last_not_of('\n');
    if (end == std::string::npos)
        return "it gave no reason";
    const std::size_t begin = text.rfind('\n', end);
    return text.substr(begin == std::string::npos ? 0 : begin + 1,
                       end - (begin == std::string::npos ? 0 : begin + 1) + 1);
}

} // namespace

PipeProcess::PipeProcess(const std::vector<std::string>& arguments, const std::string& film) : fileName(film) {
    std::signal(SIGPIPE, SIG_IGN);
    const Pipe picturePipe = openPipe();
    const Pipe soundPipe = openPipe();
    const Pipe messagePipe = openPipe();
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    int error = 0;
    child = spawn(arguments, {picturePipe.readEnd, nowhere, messagePipe.writeEnd, soundPipe.readEnd}, error);
    for (const int descriptor : {picturePipe.readEnd, soundPipe.readEnd, messagePipe.writeEnd, nowhere})
        close(descriptor);
    queues[pictures].descriptor = picturePipe.writeEnd;
    queues[sounds].descriptor = soundPipe.writeEnd;
    messages = messagePipe.readEnd;
    for (const int descriptor : {picturePipe.writeEnd, soundPipe.writeEnd, messages})
        fcntl(descriptor, F_SETFL, O_NONBLOCK);
    if (error != 0) {
        child = -1;
        throw std::runtime_error(fileName + ": " + arguments[0] + " cannot be started: " + std::strerror(error) +
                                 "; it makes the film and has to be installed");
    }
}

PipeProcess::~PipeProcess() {
    for (Queue& queue : queues)
        closeStream(queue);
    if (child > 0)
        waitpid(child, nullptr, 0);
    if (messages >= 0)
        close(messages);
}

void PipeProcess::write(Stream stream, const std::uint8_t* bytes, std::size_t size) {
    queues[stream].blocks.emplace_back(bytes, bytes + size);
    pump(false);
    const std::deque<std::vector<std::uint8_t>>& waiting = queues[pictures].blocks;
    while (waiting.size() > queuedPictures) {
        const bool moved = pump(true);
        const bool starved = !moved && queues[sounds].blocks.empty();
        if (starved && waiting.size() < mostPictures)
            break;
    }
}

void PipeProcess::finish() {
    for (;;) {
        bool open = false;
        for (Queue& queue : queues) {
            if (queue.blocks.empty())
                closeStream(queue);
            open = open || queue.descriptor >= 0;
        }
        if (!open)
            break;
        pump(true);
    }
    reap();
}

bool PipeProcess::pump(bool wait) {
    std::array<pollfd, 3> polled{};
    for (std::size_t i = 0; i < queues.size(); ++i)
        polled[i] = {queues[i].blocks.empty() ? -1 : queues[i].descriptor, POLLOUT, 0};
    polled[2] = {messages, POLLIN, 0};
    poll(polled.data(), polled.size(), wait ? patience : 0);
    if ((polled[2].revents & POLLIN) != 0)
        readMessages();
    bool moved = false;
    for (Queue& queue : queues)
        while (!queue.blocks.empty() && sendSome(queue))
            moved = true;
    return moved;
}

// False when the pipe is full.
bool PipeProcess::sendSome(Queue& queue) {
    const std::vector<std::uint8_t>& block = queue.blocks.front();
    const ssize_t written = ::write(queue.descriptor, block.data() + queue.sent, block.size() - queue.sent);
    if (written < 0) {
        if (errno == EAGAIN || errno == EINTR)
            return false;
        reap(); // the reader has gone: its reason is the cause
        throw std::runtime_error(fileName + ": the encoder ended before the film");
    }
    queue.sent += static_cast<std::size_t>(written);
    if (queue.sent == block.size()) {
        queue.blocks.pop_front();
        queue.sent = 0;
    }
    return true;
}

void PipeProcess::readMessages() {
    char text[512];
    for (ssize_t size = 0; (size = read(messages, text, sizeof text)) > 0;)
        messageText.append(text, static_cast<std::size_t>(size));
}

void PipeProcess::closeStream(Queue& queue) {
    if (queue.descriptor >= 0)
        close(queue.descriptor);
    queue.descriptor = -1;
    queue.blocks.clear();
}

void PipeProcess::reap() {
    for (Queue& queue : queues)
        closeStream(queue);
    fcntl(messages, F_SETFL, 0); // until the program has closed its end
    readMessages();
    int status = 0;
    waitpid(child, &status, 0);
    child = -1;
    if (status != 0)
        throw std::runtime_error(fileName + ": the encoder failed: " + lastLine(messageText));
}

} // namespace lumenfold::film
