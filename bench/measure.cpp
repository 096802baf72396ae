#include "bench/measure.h"

#include "core/pixel.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <ctime>
#include <utility>

namespace lumenfold::bench {

double threadMicroseconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) * 1e-3;
}

Samples::Samples(std::vector<double> microseconds) : sorted_(std::move(microseconds)) {
    std::sort(sorted_.begin(), sorted_.end());
}

double Samples::quantile(double q) const {
    const auto last = static_cast<double>(sorted_.size() - 1);
    return sorted_[static_cast<std::size_t>(std::lround(q * last))];
}

Samples sample(const std::function<void()>& work) {
    constexpr double enough = 200e3;
    for (int i = 0; i < 3; ++i)
        work();
    std::vector<double> times;
    const double start = threadMicroseconds();
    double end = start;
    while (times.size() < 15 || end - start < enough) {
        const double begin = threadMicroseconds();
        work();
        end = threadMicroseconds();
        times.push_back(end - begin);
    }
    return Samples(std::move(times));
}

double copyMicroseconds(std::size_t pixels) {
    const std::vector<Pixel32> source(pixels, 0x00123456);
    std::vector<Pixel32> destination(pixels);
    return sample([&] { std::memcpy(destination.data(), source.data(), pixels * sizeof(Pixel32)); }).median();
}

double copyMicroseconds() {
    static const double time = copyMicroseconds(std::size_t{512} * 384);
    return time;
}

} // namespace lumenfold::bench
