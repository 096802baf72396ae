#pragma once

#include <string>

namespace lumenfold::film {

// A file that gets its name only when it is whole: it is written beside it and renamed at the end. Until then an
// earlier file of that name stays as it was.
class PendingFile {
  public:
    // Looks whether the file could be written and throws std::runtime_error with its name and the cause if not.
    explicit PendingFile(const std::string& fileName);
    ~PendingFile(); // what was not renamed is removed
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;

    const std::string& name() const { return fileName; } // for messages
    const std::string& place() const { return beside; }  // where it is written
    void rename();                                       // to its name; throws std::runtime_error

  private:
    std::string fileName;
    std::string target; // what the name leads to
    std::string beside;
};

// "4.2 MB"
std::string sizeInWords(const std::string& fileName);

} // namespace lumenfold::film
