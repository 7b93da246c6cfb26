// A word that is nearly a condition is a text: a name may hold it.
#include "windows/list_filter.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "platform/text.h"

namespace windows {
namespace {

/// Takes a number off the front; false where there is none, or one that no map has.
bool takeNumber(std::string_view& text, int& number) {
    constexpr int most = 9999;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || number < 0 || number > most)
        return false;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return true;
}

bool compares(int value, const std::string& relation, int other) {
    if (relation == "<")
        return value < other;
    if (relation == "<=")
        return value <= other;
    if (relation == ">")
        return value > other;
    if (relation == ">=")
        return value >= other;
    return value == other;
}

} // namespace

std::vector<std::string> notesOf(const std::vector<MapFacts>& maps) {
    if (maps.size() > 1)
        return {std::to_string(maps.size()) + " maps", ""};
    if (maps.empty())
        return {};
    return {maps.front().playersText, formats::shownSize(maps.front().size)};
}

bool ListFilter::readCondition(std::string_view word, Condition& condition) {
    const auto folded = platform::foldCase(word);
    std::string_view rest = folded;
    condition.isSize = rest.starts_with("size");
    if (!condition.isSize && !rest.starts_with("players"))
        return false;
    rest.remove_prefix(std::string_view(condition.isSize ? "size" : "players").size());
    constexpr std::array<std::string_view, 6> relations = {"<=", ">=", "<", ">", "=", ":"};
    const auto* const relation = std::ranges::find_if(
        relations, [&](std::string_view each) { return rest.starts_with(each); });
    if (relation == relations.end())
        return false;
    condition.relation = *relation == ":" ? "=" : std::string(*relation);
    rest.remove_prefix(relation->size());
    if (!takeNumber(rest, condition.number))
        return false;
    if (condition.isSize && rest.starts_with("x")) {
        rest.remove_prefix(1);
        return takeNumber(rest, condition.second) && condition.second > 0 && rest.empty();
    }
    return rest.empty();
}

ListFilter ListFilter::parse(std::string_view typed) {
    ListFilter filter;
    std::string words;
    for (std::size_t at = 0; at < typed.size();) {
        const auto end = std::min(typed.find(' ', at), typed.size());
        const auto word = typed.substr(at, end - at);
        at = end + 1;
        if (word.empty())
            continue;
        Condition condition;
        if (readCondition(word, condition))
            filter.conditions_.push_back(condition);
        else
            words += (words.empty() ? "" : " ") + std::string(word);
    }
    filter.text_ = filter.conditions_.empty() ? std::string(typed) : words;
    return filter;
}

bool ListFilter::holds(const Condition& condition, const MapFacts& map) {
    const auto& relation = condition.relation;
    if (!condition.isSize)
        return std::ranges::any_of(map.players, [&](int players) {
            return compares(players, relation, condition.number);
        });
    if (map.size == formats::MapSize())
        return false;
    if (condition.second == 0)
        return compares(std::max(map.size.width, map.size.height), relation, condition.number);
    return compares(map.size.width, relation, condition.number) &&
           compares(map.size.height, relation, condition.second);
}

bool ListFilter::accepts(const std::vector<MapFacts>& maps) const {
    return conditions_.empty() || std::ranges::any_of(maps, [this](const MapFacts& map) {
               return std::ranges::all_of(conditions_,
                                          [&](const Condition& each) { return holds(each, map); });
           });
}

} // namespace windows
