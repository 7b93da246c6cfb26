// What the benchmarks share: times, their median, and a table of ratios.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace bench {

using Seconds = double;

template <typename Work>
Seconds timeOf(Work&& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline Seconds median(std::vector<Seconds> times) {
    const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
    std::nth_element(times.begin(), middle, times.end());
    return *middle;
}

/// A row of the report: the time, the limit's time, their ratio and the goal for it.
inline void report(const std::string& what, Seconds time, Seconds limit, double goal) {
    const double ratio = time / limit;
    std::printf("%-52s %8.1f ms  limit %8.1f ms  ratio %5.2f  goal %5.2f  %s\n", what.c_str(),
                time * 1000, limit * 1000, ratio, goal, ratio <= goal ? "ok" : "MISSED");
}

} // namespace bench
