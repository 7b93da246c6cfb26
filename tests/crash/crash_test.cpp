// Disturbs the whole program at every moment, on a disk in memory, and holds what is left against
// what was there.
//   crash-test [--seed N] [--seconds N] [--points N]
//   crash-test POINT        one point again, as a finding tells it: stop apply 17
//   crash-test world STEP...    one sequence of steps again
//   crash-test --seed N life    one long life again
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include "crash/life.h"
#include "crash/points.h"

namespace {

constexpr int runsOfALife = 1000;

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
    const auto now = std::chrono::steady_clock::now;
    const auto begin = now();
    limits.end = begin + std::chrono::seconds(seconds);
    if (point == "life") {
        crash::isTelling = true;
        crash::tryLongLife(limits, runsOfALife, report);
    } else if (point.starts_with("world")) {
        if (const auto wrong = crash::playWay(point); !wrong.empty())
            report.found(wrong, point);
    } else if (!point.empty()) {
        if (!crash::tryPoint(point, report))
            return usage();
    } else {
        std::cout << "seed " << limits.seed << std::endl;
        crash::tryOutsideChanges(report);
        const auto share = (limits.end - now()) / 8;
        auto part = limits;
        part.end = now() + share;
        crash::trySmallWorlds(part, 5, report);
        part.end = now() + share;
        for (part.seed = limits.seed; now() < part.end; ++part.seed)
            crash::tryLongLife(part, runsOfALife, report);
        crash::tryPoints(limits, report);
    }
    report.print();
    return report.isClean() ? 0 : 1;
}
