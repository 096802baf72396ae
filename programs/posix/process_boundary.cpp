#include "programs/process_boundary.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <iostream>
#include <poll.h>
#include <streambuf>
#include <string>
#include <unistd.h>

namespace lumenfold {

namespace {

void askForTheEnd(int) {
    std::raise(SIGTERM);
}

// Hands lines to standard output while it takes them. A pipe that polls as writable takes a block of 512 bytes at once,
// as POSIX has it for PIPE_BUF.
class DroppingBuffer : public std::streambuf {
  protected:
    int_type overflow(int_type character) override {
        if (!traits_type::eq_int_type(character, traits_type::eof()))
            line.push_back(traits_type::to_char_type(character));
        if (line.size() >= block || (!line.empty() && line.back() == '\n'))
            send();
        return traits_type::not_eof(character);
    }
    int sync() override {
        send();
        return 0;
    }

  private:
    static constexpr std::size_t block = 512;

    void send() {
        for (std::size_t begin = 0; begin < line.size(); begin += block) {
            pollfd output{STDOUT_FILENO, POLLOUT, 0};
            if (poll(&output, 1, 0) == 1 && (output.revents & POLLOUT) != 0 &&
                write(STDOUT_FILENO, line.data() + begin, std::min(block, line.size() - begin)) < 0)
                break; // a full disk or a reader that has gone
        }
        line.clear();
    }

    std::string line;
};

} // namespace

void guardProcess() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (fcntl(descriptor, F_GETFD) == -1)
            open("/dev/null", descriptor == STDIN_FILENO ? O_RDONLY : O_WRONLY); // takes the lowest free number
    std::signal(SIGPIPE, SIG_IGN);
    if (std::signal(SIGHUP, askForTheEnd) == SIG_IGN)
        std::signal(SIGHUP, SIG_IGN);
}

void neverWaitForReaders() {
    static DroppingBuffer buffer;
    std::cout.rdbuf(&buffer);
}

} // namespace lumenfold
