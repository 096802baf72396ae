#include "assets/file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <system_error>

namespace lumenfold {

namespace {

// Files grow into the buffer by doubling, so that a pipe or a file without a known length is read as well.
constexpr std::size_t firstRead = 128 * 1024;

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

} // namespace

std::optional<std::vector<std::uint8_t>> readFile(const char* fileName, std::size_t limit) {
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(fileName, "rb"));
    if (!file)
        return std::nullopt;
    std::setvbuf(file.get(), nullptr, _IONBF, 0);
    std::vector<std::uint8_t> data;
    std::size_t length = 0;
    while (length < limit && length == data.size()) {
        data.resize(std::min(limit, std::max(firstRead, 2 * length)));
        length += std::fread(data.data() + length, 1, data.size() - length, file.get());
    }
    if (length == 0 && std::ferror(file.get())) // a folder opens, but cannot be read
        return std::nullopt;
    data.resize(length);
    return data;
}

std::vector<std::uint8_t> requireFile(const char* fileName, std::size_t limit) {
    std::optional<std::vector<std::uint8_t>> data = readFile(fileName, limit);
    if (!data)
        throw FileError(fileName, errno);
    return std::move(*data);
}

std::string unreadableText(const std::string& fileName, int reason) {
    const bool missing = reason == ENOENT;
    std::string text = missing ? "not found" : "cannot be read";
    if (std::filesystem::path(fileName).is_relative()) {
        std::error_code error;
        const std::filesystem::path folder = std::filesystem::current_path(error);
        if (error)
            return text + ": the working directory " +
                   (error == std::errc::no_such_file_or_directory ? "has been deleted" : "is not accessible");
        text += " in " + folder.string();
    }
    return missing ? text : text + ": " + std::strerror(reason);
}

} // namespace lumenfold
