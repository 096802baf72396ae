#pragma once

#include "programs/pipes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

namespace lumenfold::film {

// A program that reads two streams at a pace of its own, from descriptors 0 and 3. What it does not take yet is
// kept, so that it never waits for one stream while the writer waits for the other. It does not see the terminal's
// Ctrl-C and so can finish its file. Failures throw std::runtime_error with the file's name and the last line of
// what the program had to say.
class PipeProcess {
  public:
    enum Stream { pictures, sounds };

    PipeProcess(const std::vector<std::string>& arguments, const std::string& fileName);
    ~PipeProcess();
    PipeProcess(const PipeProcess&) = delete;
    PipeProcess& operator=(const PipeProcess&) = delete;

    void write(Stream stream, const std::uint8_t* bytes, std::size_t size);

    // Writes what is left, ends both streams and waits for the program.
    void finish();

  private:
    struct Queue {
        Handle end = noHandle;
        std::deque<std::vector<std::uint8_t>> blocks;
        std::size_t sent = 0; // bytes of the first block
    };

    bool pump(bool wait); // whether anything was sent
    bool sendSome(Queue& queue);
    void readMessages();
    void closeStream(Queue& queue);
    void reap(); // waits for the end; throws if the program failed

    std::string fileName;
    Handle child = noHandle;
    std::array<Queue, 2> queues;
    Handle messages = noHandle;
    std::string messageText;
};

} // namespace lumenfold::film
