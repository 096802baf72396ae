#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace lumenfold::test {

// Starts a program with nothing on standard input; what it prints goes to files. Throws std::runtime_error.
pid_t spawn(const std::vector<std::string>& words, const std::string& output, const std::string& errors);

// A PulseAudio server of the test's own, with a folder of its own, and one silent sink. Steps that fail throw
// std::runtime_error.
class SoundServer {
  public:
    // Why there can be none; empty if there can.
    static std::string missing();

    // alwaysSink: with the module that puts a sink in place of the last one.
    explicit SoundServer(bool alwaysSink);
    ~SoundServer();
    SoundServer(const SoundServer&) = delete;
    SoundServer& operator=(const SoundServer&) = delete;

    const std::string& folder() const { return place; }

    // The words before a program's name that make it a client.
    std::vector<std::string> client() const;

    void start();
    void signal(int number) const;
    void end(); // at once

    // pactl with these words.
    void control(const std::string& words) const;

    // Waits until the default sink plays something else than silence; false if that takes too long.
    bool plays() const;

  private:
    std::string place;
    bool always;
    pid_t server = 0;
};

} // namespace lumenfold::test
