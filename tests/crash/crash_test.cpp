// Disturbs the whole program at every moment, on a disk in memory, and holds what is left against
// what was there.
//   crash-test [--seed N] [--seconds N] [--points N]
//   crash-test POINT        one point again, as a finding tells it: stop apply 17
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include "crash/points.h"

namespace {

int usage() {
    std::cerr << "crash-test [--seed N] [--seconds N] [--points N] | POINT\n";
    return 2;
}

} // namespace

int main(int count, char** arguments) {
    crash::Limits limits;
    int seconds = 60;
    std::string point;
    for (int i = 1; i < count; ++i) {
        const std::string_view word = arguments[i];
        if (!word.starts_with("--")) {
            point += (point.empty() ? "" : " ") + std::string(word);
            continue;
        }
        if (++i == count)
            return usage();
        const int number = std::atoi(arguments[i]);
        if (word == "--seed")
            limits.seed = static_cast<std::uint32_t>(number);
        else if (word == "--seconds")
            seconds = number;
        else if (word == "--points")
            limits.points = number;
        else
            return usage();
    }
    crash::Report report;
    if (!point.empty()) {
        if (!crash::tryPoint(point, report))
            return usage();
    } else {
        std::cout << "seed " << limits.seed << std::endl;
        limits.end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
        crash::tryPoints(limits, report);
    }
    report.print();
    return report.isClean() ? 0 : 1;
}
