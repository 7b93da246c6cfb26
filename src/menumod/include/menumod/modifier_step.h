// The build-menu modifier as the last step of an apply, for whoever runs one.
#pragma once

#include <string>

#include "menumod/modTrlx.h"

namespace menumod {

struct StepOutcome {
    /// Whether its output stands in the game directory, or may: what the next reset has to know.
    bool isOn = true;
    std::string problem; ///< for people; empty where nothing failed
};

/// Passes over every failure.
StepOutcome runModifier(releases::GameDirectory& game, modTrlx::Settings settings);

} // namespace menumod
