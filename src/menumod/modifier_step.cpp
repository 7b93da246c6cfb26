// What went wrong on the way becomes one message, which waits until the apply is over.
#include "menumod/modifier_step.h"

#include "platform/failure.h"
#include "platform/text.h"

namespace menumod {

StepOutcome runModifier(releases::GameDirectory& game, modTrlx::Settings settings) {
    StepOutcome outcome;
    modTrlx trellis(game, settings);
    // Where a stage fails the setting stays, so that the next reset removes what was made.
    std::vector<std::string> thrown;
    try {
        outcome.isOn = trellis.enableTrlx();
    } catch (const platform::Failure& failure) {
        thrown.emplace_back(failure.what());
    }
    auto failures = trellis.failures();
    failures.insert(failures.end(), thrown.begin(), thrown.end());
    if (!failures.empty())
        outcome.problem =
            "The Trellis could not make all of its files, so build menus may be wrong:\r\n\r\n" +
            platform::shownList(failures) +
            "\r\nPlease make room on the disk or allow writing to the game directory.";
    if (const auto& unit = trellis.unitLeadingOut())
        outcome.problem = "The download file of the unit \"" + *unit +
                          "\" could not be opened, because its name leads out of the folder.";
    return outcome;
}

} // namespace menumod
