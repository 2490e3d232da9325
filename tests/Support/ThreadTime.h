#pragma once

#include <algorithm>
#include <ctime>
#include <vector>

namespace orvelle {

/// Milliseconds of this thread that the work takes; what other programs do meanwhile does not
/// count.
template <class Work>
double threadMilliseconds(Work work) {
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
    };
    const double before = now();
    work();
    return now() - before;
}

/// Half of them take longer.
inline double median(std::vector<double> times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

} // namespace orvelle
