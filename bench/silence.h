#pragma once

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace lumenfold::bench {

// Standard output goes nowhere while this lives.
class Silence {
  public:
    Silence() : kept_(flushed()) {
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDOUT_FILENO);
        close(nowhere);
    }
    ~Silence() {
        std::fflush(stdout);
        dup2(kept_, STDOUT_FILENO);
        close(kept_);
    }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

  private:
    static int flushed() {
        std::fflush(stdout);
        return dup(STDOUT_FILENO);
    }

    int kept_;
};

} // namespace lumenfold::bench
