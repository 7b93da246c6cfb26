// A line for each fact, and a last line by which a cut file shows.
#include "formats/state.h"

#include <algorithm>
#include <charconv>

#include "formats/checksum.h"
#include "platform/text.h"

namespace formats {
namespace {

constexpr std::string_view sizeWord = "SIZE ";
constexpr std::string_view checksumWord = "CHECKSUM ";
constexpr std::string_view appliedLine = "applied";
constexpr std::string_view undoneLine = "undone";
constexpr std::string_view carriedOutLine = "CARRIED OUT";
constexpr std::string_view failedWord = "FAILED ";
constexpr std::string_view lastLine = "END";

constexpr int hexadecimal = 16;

template <typename Number>
bool readNumber(std::string_view line, std::string_view word, Number& number, int base = 10) {
    if (!line.starts_with(word))
        return false;
    line.remove_prefix(word.size());
    const auto* end = line.data() + line.size();
    const auto result = std::from_chars(line.data(), end, number, base);
    return result.ec == std::errc() && result.ptr == end;
}

} // namespace

State stateOf(std::string_view journal, State::Stage stage) {
    return {journal.size(), checksumOf(journal), stage, false, {}};
}

bool fits(const State& state, std::string_view journal) {
    const auto other = stateOf(journal, state.stage);
    return other.journalSize == state.journalSize && other.journalChecksum == state.journalChecksum;
}

std::string stateText(const State& state) {
    std::vector<std::string> lines = {
        std::string(sizeWord) + std::to_string(state.journalSize),
        std::string(checksumWord) + checksumText(state.journalChecksum),
        std::string(state.stage == State::Stage::applied ? appliedLine : undoneLine)};
    if (state.isCarriedOut)
        lines.emplace_back(carriedOutLine);
    for (const auto number : state.failedMoves)
        lines.push_back(std::string(failedWord) + std::to_string(number));
    lines.emplace_back(lastLine);
    return platform::joinLines(lines);
}

std::optional<State> readState(std::string_view text) {
    const auto lines = platform::splitLines(text);
    State state;
    if (lines.size() < 4 || !readNumber(lines[0], sizeWord, state.journalSize) ||
        !readNumber(lines[1], checksumWord, state.journalChecksum, hexadecimal))
        return std::nullopt;
    state.stage = lines[2] == undoneLine ? State::Stage::undone : State::Stage::applied;
    for (auto line = lines.begin() + 3; line != lines.end(); ++line) {
        std::size_t number = 0;
        if (*line == carriedOutLine)
            state.isCarriedOut = true;
        else if (readNumber(*line, failedWord, number))
            state.failedMoves.push_back(number);
    }
    // Whatever does not come out as it went in is not of this program's writing.
    return stateText(state) == text ? std::optional(state) : std::nullopt;
}

} // namespace formats
