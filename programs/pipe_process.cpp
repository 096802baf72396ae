#include "programs/pipe_process.h"

#include "programs/pipes.h"

#include <chrono>
#include <stdexcept>

namespace lumenfold::film {

namespace {

// Pictures kept while the program works on earlier ones; more only while it waits for more sound.
constexpr std::size_t queuedPictures = 16;
constexpr std::size_t mostPictures = 600;
constexpr int patience = 100; // milliseconds without movement after which it is taken to wait

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
    const Pipe picturePipe = openPipe();
    const Pipe soundPipe = openPipe();
    const Pipe messagePipe = openPipe();
    const Handle nowhere = openNowhere();
    std::string reason;
    child = startProgram(arguments, {picturePipe.readEnd, nowhere, messagePipe.writeEnd, soundPipe.readEnd}, reason);
    for (const Handle handle : {picturePipe.readEnd, soundPipe.readEnd, messagePipe.writeEnd, nowhere})
        closeHandle(handle);
    queues[pictures].end = picturePipe.writeEnd;
    queues[sounds].end = soundPipe.writeEnd;
    messages = messagePipe.readEnd;
    for (const Handle end : {picturePipe.writeEnd, soundPipe.writeEnd, messages})
        setWaiting(end, false);
    if (child == noHandle)
        throw std::runtime_error(fileName + ": " + arguments[0] + " cannot be started: " + reason +
                                 "; it makes the film and has to be installed");
}

PipeProcess::~PipeProcess() {
    for (Queue& queue : queues)
        closeStream(queue);
    if (child != noHandle)
        waitForEnd(child);
    if (messages != noHandle)
        closeHandle(messages);
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
            open = open || queue.end != noHandle;
        }
        if (!open)
            break;
        pump(true);
    }
    reap();
}

bool PipeProcess::pump(bool wait) {
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(patience);
    bool moved = false;
    do {
        std::array<Handle, 2> outputs{};
        for (std::size_t i = 0; i < queues.size(); ++i)
            outputs[i] = queues[i].blocks.empty() ? noHandle : queues[i].end;
        if (waitForPipes(outputs, messages, wait ? patience : 0))
            readMessages();
        for (Queue& queue : queues)
            while (!queue.blocks.empty() && sendSome(queue))
                moved = true;
    } while (wait && !moved && std::chrono::steady_clock::now() < end);
    return moved;
}

// False when the pipe is full.
bool PipeProcess::sendSome(Queue& queue) {
    const std::vector<std::uint8_t>& block = queue.blocks.front();
    const std::ptrdiff_t written = writeSome(queue.end, block.data() + queue.sent, block.size() - queue.sent);
    if (written == 0 && !block.empty())
        return false;
    if (written < 0) {
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
    for (std::size_t size = 0; (size = readSome(messages, text, sizeof text)) > 0;)
        messageText.append(text, size);
}

void PipeProcess::closeStream(Queue& queue) {
    if (queue.end != noHandle)
        closeHandle(queue.end);
    queue.end = noHandle;
    queue.blocks.clear();
}

void PipeProcess::reap() {
    for (Queue& queue : queues)
        closeStream(queue);
    setWaiting(messages, true); // until the program has closed its end
    readMessages();
    const int status = waitForEnd(child);
    child = noHandle;
    if (status != 0)
        throw std::runtime_error(fileName + ": the encoder failed: " + lastLine(messageText));
}

} // namespace lumenfold::film
