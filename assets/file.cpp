#include "assets/file.h"

#include "core/dynamic_error.h"

#include <algorithm>
#include <cstdio>
#include <memory>

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
        throw DynamicError(fileName);
    return std::move(*data);
}

} // namespace lumenfold
