// Points: one operation, disturbed at one of its changes in one way.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "crash/report.h"

namespace crash {

struct Limits {
    std::uint32_t seed = 1;
    std::chrono::steady_clock::time_point end; ///< no point is begun behind it
    int points = 1 << 30;
    std::vector<std::string> without; ///< kinds, operations, or both with a blank
};

/// Tries all stops, failures and pairs and many losses of power, in an order by chance.
void tryPoints(const Limits& limits, Report& report);

/// Tries one, as a recipe has it ("stop apply 17 dead 0"), and tells what the user saw on the way.
/// False for one that there is not.
bool tryPoint(const std::string& recipe, Report& report);

} // namespace crash
