#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>

namespace lumenfold::test {

// A file in the tests' own folder for the length of a test.
class TemporaryFile {
  public:
    // bytes: a string or a vector of bytes.
    template <class Bytes>
    TemporaryFile(const std::string& name, const Bytes& bytes) : path(::testing::TempDir() + "lumenfold_" + name) {
        std::ofstream file(path, std::ios::binary);
        file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
        EXPECT_TRUE(file.good());
    }
    ~TemporaryFile() { std::remove(path.c_str()); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const char* name() const { return path.c_str(); }

  private:
    std::string path;
};

} // namespace lumenfold::test
