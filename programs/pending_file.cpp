#include "programs/pending_file.h"

#include "programs/system.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <system_error>

namespace lumenfold::film {

namespace fs = std::filesystem;

PendingFile::PendingFile(const std::string& name) : fileName(name), target(name) {
    std::error_code error;
    constexpr int mostLinks = 40;
    for (int links = 0; links < mostLinks && fs::is_symlink(target, error); ++links) // they stay links
        target = (fs::path(target).parent_path() / fs::read_symlink(target, error)).string();
    const fs::file_status status = fs::status(target, error);
    if (fs::exists(status) && !fs::is_regular_file(status))
        throw std::runtime_error(name + (fs::is_directory(status) ? ": is a folder" : ": is not a plain file"));
    errno = 0;
    if (!writable(target))
        throw std::runtime_error(name + ": cannot be written: " + std::strerror(errno));
    beside = target + ".part" + std::to_string(processNumber());
}

PendingFile::~PendingFile() {
    std::error_code error;
    fs::remove(beside, error);
}

void PendingFile::rename() {
    std::error_code error;
    fs::rename(beside, target, error);
    if (error)
        throw std::runtime_error(fileName + ": " + error.message());
}

std::string sizeInWords(const std::string& fileName) {
    std::error_code error;
    const auto bytes = static_cast<double>(fs::file_size(fileName, error));
    char text[32];
    if (bytes < 1e6)
        std::snprintf(text, sizeof text, "%.0f kB", bytes / 1e3);
    else
        std::snprintf(text, sizeof text, "%.1f MB", bytes / 1e6);
    return text;
}

} // namespace lumenfold::film
