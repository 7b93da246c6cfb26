// A damaged file is kept: people can read more out of it than the program.
#include "cycle/change_files.h"

namespace cycle {

void keepBeside(const releases::GameDirectory& game, const std::string& file) {
    auto& disk = game.disk();
    if (disk.kindOf(file) == platform::EntryKind::none)
        return;
    const auto cut = file.rfind('\\') + 1;
    const auto dot = file.rfind('.');
    const auto name = file.substr(cut, dot - cut);
    for (int number = 1;; ++number)
        if (disk.renameEntry(file,
                             name + " (damaged " + std::to_string(number) + ")" + file.substr(dot)))
            return;
}

} // namespace cycle
