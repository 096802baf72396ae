#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace lumenfold::bench {

// Processor time of the calling thread, in microseconds: other programs on the machine do not count.
double threadMicroseconds();

// Sorted measurements of one thing, in microseconds.
class Samples {
  public:
    explicit Samples(std::vector<double> microseconds);

    bool empty() const { return sorted_.empty(); }
    double median() const { return quantile(0.5); }
    double quantile(double q) const; // q from 0 to 1; not for empty samples

  private:
    std::vector<double> sorted_;
};

// Runs the work a few times to warm up and then for about a fifth of a second, at least 15 times.
Samples sample(const std::function<void()>& work);

// Median time of a memcpy of so many pixels between two blocks of that size.
double copyMicroseconds(std::size_t pixels);

// Of one copy: a memcpy of 512 x 384 pixels. Measured once, at the first call.
double copyMicroseconds();

} // namespace lumenfold::bench
