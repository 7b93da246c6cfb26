// What the disk says of the journal beside it: which journal it is, and how far it has come.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formats {

struct State {
    enum class Stage {
        applied, ///< the moves may have begun
        undone   ///< nothing of the journal is in the game directory any more
    };
    std::uint64_t journalSize = 0; ///< bytes
    std::uint32_t journalChecksum = 0;
    Stage stage = Stage::applied;
    /// Every move of the journal was tried. Those that failed are listed by their numbers, from 1.
    bool isCarriedOut = false;
    std::vector<std::size_t> failedMoves;
};

/// The state of a journal by its bytes, with no move tried yet.
State stateOf(std::string_view journal, State::Stage stage);
/// Whether a state speaks of these bytes.
bool fits(const State& state, std::string_view journal);

std::string stateText(const State& state);
/// Nothing unless the text is whole: one cut anywhere, or with a byte changed in its form, is none.
std::optional<State> readState(std::string_view text);

} // namespace formats
