#pragma once

#include <string>
#include <vector>

namespace lumenfold::bench {

// One measured value and, where there is one, the peer measured in the same run.
struct Row {
    std::string name;
    double value = 0.0;
    std::string unit;
    std::string peer; // empty: none
    double peerValue = 0.0;
    double ratio = 0.0; // value / peerValue
};

// Collects the rows and prints each as it comes, so that a long run shows its progress.
class Report {
  public:
    enum class Format { Table, Csv };
    explicit Report(Format format);

    void section(const char* title); // a heading in the table; nothing in the CSV form
    void add(const std::string& name, double value, const char* unit);
    void add(const std::string& name, double value, const char* unit, const char* peer, double peerValue);
    // A time in microseconds, set beside one copy of a frame: the ratio is the time in copies.
    void addTime(const std::string& name, double microseconds);

  private:
    void print(const Row& row) const;

    Format format_;
};

} // namespace lumenfold::bench
