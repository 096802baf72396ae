#include "tests/window/sound_server.h"

#include "tests/window/virtual_screen.h"

#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <stdexcept>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace lumenfold::test {

namespace {
constexpr int patience = 30; // seconds; a loaded machine may be slow
} // namespace

pid_t spawn(const std::vector<std::string>& words, const std::string& output, const std::string& errors) {
    std::vector<char*> arguments;
    for (const std::string& word : words)
        arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    const pid_t child = fork();
    if (child < 0)
        throw std::runtime_error("no process");
    if (child != 0)
        return child;
    constexpr int append = O_WRONLY | O_CREAT | O_APPEND;
    dup2(open("/dev/null", O_RDONLY), STDIN_FILENO);
    dup2(open(output.c_str(), append, 0600), STDOUT_FILENO);
    dup2(open(errors.c_str(), append, 0600), STDERR_FILENO);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

std::string SoundServer::missing() {
    for (const char* tool : {"pulseaudio", "pactl", "parec"})
        if (outputOf(std::string("command -v ") + tool).empty())
            return std::string(tool) + " is not installed";
    return "";
}

SoundServer::SoundServer(bool alwaysSink) : place(testing::TempDir() + "soundXXXXXX"), always(alwaysSink) {
    if (mkdtemp(place.data()) == nullptr)
        throw std::runtime_error("no folder for a sound server");
    start();
}

SoundServer::~SoundServer() {
    end();
    std::error_code error;
    std::filesystem::remove_all(place, error);
}

std::vector<std::string> SoundServer::client() const {
    return {"env", "HOME=" + place, "XDG_RUNTIME_DIR=" + place, "PULSE_SERVER=unix:" + place + "/socket",
            "SDL_AUDIODRIVER=pulseaudio"};
}

void SoundServer::start() {
    std::vector<std::string> words = client();
    for (const char* word : {"pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
                             "--realtime=no", "--high-priority=no", "-L", "module-null-sink sink_name=one"})
        words.emplace_back(word);
    if (always)
        words.insert(words.end(), {"-L", "module-always-sink"});
    std::filesystem::remove(place + "/socket");
    words.insert(words.end(), {"-L", "module-native-protocol-unix auth-anonymous=1 socket=" + place + "/socket"});
    server = spawn(words, place + "/server.log", place + "/server.log");
    for (int tries = 0; tries < patience * 20; ++tries) {
        if (std::filesystem::exists(place + "/socket"))
            return control("info");
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    throw std::runtime_error("the sound server does not start");
}

void SoundServer::signal(int number) const {
    kill(server, number);
}

void SoundServer::end() {
    if (server <= 0)
        return;
    kill(server, SIGKILL);
    waitpid(server, nullptr, 0);
    server = 0;
}

void SoundServer::control(const std::string& words) const {
    std::string command = "timeout " + std::to_string(patience);
    for (const std::string& word : client())
        command += " '" + word + "'";
    command += " pactl " + words + " 2>&1";
    int status = 0;
    const std::string said = outputOf(command, &status);
    if (status != 0)
        throw std::runtime_error("pactl " + words + ": " + said);
}

bool SoundServer::plays() const {
    std::string command = "exec";
    for (const std::string& word : client())
        command += " '" + word + "'";
    command +=
        " timeout " + std::to_string(patience) + " parec -d @DEFAULT_MONITOR@ --raw --latency-msec=20 2>/dev/null";
    std::FILE* recording = popen(command.c_str(), "r");
    bool heard = false;
    for (int byte = 0; !heard && (byte = std::fgetc(recording)) != EOF;)
        heard = byte != 0;
    pclose(recording);
    return heard;
}

} // namespace lumenfold::test
