// Disturbs the whole program at every moment, on a disk in memory, and holds what is left against
// what was there.
//   crash-test [--seed N] [--seconds N]     all there is, by chance where there is no end of it
//   crash-test --points N [--seed N] [--without "KIND OPERATION"]...   a sample, always the same
//   crash-test POINT            one point again, as a finding tells it: fail apply 17 full 1
//   crash-test world STEP...    one sequence of steps again
//   crash-test worlds LENGTH    all sequences of so many steps
//   crash-test --seed N life    one long life again
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>

#include "crash/life.h"
#include "crash/points.h"

namespace {

constexpr int runsOfALife = 1000;

int usage() {
    std::cerr << "crash-test [--seed N] [--seconds N] [--points N] [--without WORD] [POINT]\n";
    return 2;
}

void tryAll(const crash::Limits& limits, bool isSample, crash::Report& report) {
    const auto now = std::chrono::steady_clock::now;
    std::cout << "seed " << limits.seed << std::endl;
    crash::tryOutsideChanges(report);
    const auto share = (limits.end - now()) / 8;
    auto part = limits;
    part.end = now() + share;
    crash::trySmallWorlds(part, isSample ? 2 : 5, report);
    part.end = now() + share;
    do
        crash::tryLongLife(part, runsOfALife, report);
    while (!isSample && now() < part.end && ++part.seed != 0);
    crash::tryPoints(limits, report);
}

} // namespace

int main(int count, char** arguments) {
    crash::Limits limits;
    int seconds = 60;
    std::string point;
    bool isSample = false;
    for (int i = 1; i < count; ++i) {
        const std::string word = arguments[i];
        if (!word.starts_with("--")) {
            point += (point.empty() ? "" : " ") + word;
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
        else if (word == "--without")
            limits.without.emplace_back(arguments[i]);
        else
            return usage();
        isSample = isSample || word == "--points";
    }
    crash::Report report;
    limits.end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    if (point.empty()) {
        tryAll(limits, isSample, report);
    } else if (point == "life") {
        crash::isTelling = true;
        crash::tryLongLife(limits, runsOfALife, report);
    } else if (point.starts_with("worlds ")) {
        limits.end += std::chrono::hours(24);
        crash::trySmallWorlds(limits, std::atoi(point.c_str() + point.find(' ')), report);
    } else if (point.starts_with("world")) {
        if (const auto wrong = crash::playWay(point); !wrong.empty())
            report.found(wrong, point);
    } else if (!crash::tryPoint(point, report)) {
        return usage();
    }
    report.print();
    return report.isClean() ? 0 : 1;
}
