#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// Pipes to another program, as the operating system has them. Failures that have a reason throw std::runtime_error.

namespace lumenfold::film {

// One end of a pipe, or a program that runs.
using Handle = std::intptr_t;
constexpr Handle noHandle = -1;

struct Pipe {
    Handle readEnd;
    Handle writeEnd;
};

Pipe openPipe();
Handle openNowhere(); // takes whatever is written to it
void closeHandle(Handle handle);

// Whether reading from or writing to this end waits for the other one.
void setWaiting(Handle end, bool waits);

// Bytes written, 0 when the pipe is full; -1 when its reader has gone. The end does not wait.
std::ptrdiff_t writeSome(Handle end, const std::uint8_t* bytes, std::size_t size);

// Bytes read; 0: there are none now, or none to come.
std::size_t readSome(Handle end, char* bytes, std::size_t size);

// Waits until one of the outputs takes something or the input has something, or less; noHandle is left out. True: the
// input has something.
bool waitForPipes(const std::array<Handle, 2>& outputs, Handle input, int milliseconds);

// Starts a program, found as the shell would, with these as its descriptors 0 to 3 and nothing else of ours. It does
// not see the terminal's Ctrl-C. Where it cannot be started: noHandle, and why.
Handle startProgram(const std::vector<std::string>& arguments, const std::array<Handle, 4>& descriptors,
                    std::string& reason);

// Waits for its end; 0: it did what it was asked.
int waitForEnd(Handle program);

} // namespace lumenfold::film
