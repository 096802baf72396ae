#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace lumenfold::test {

// A file in the tests' own folder for the length of a test.
class TemporaryFile {
  public:
    TemporaryFile(const std::string& name, const std::vector<std::uint8_t>& bytes)
        : path(::testing::TempDir() + "lumenfold_" + name) {
        std::FILE* file = std::fopen(path.c_str(), "wb");
        EXPECT_NE(file, nullptr);
        EXPECT_EQ(std::fwrite(bytes.data(), 1, bytes.size(), file), bytes.size());
        std::fclose(file);
    }
    ~TemporaryFile() { std::remove(path.c_str()); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const char* name() const { return path.c_str(); }

  private:
    std::string path;
};

} // namespace lumenfold::test
