// A path is gone through part by part without a copy; only one that is kept is put together.
#include "platform/relative_path.h"

#include <algorithm>

#include "platform/paths.h"

namespace platform {
namespace {

bool isControl(char c) {
    return static_cast<unsigned char>(c) < ' ';
}

std::string_view separatorsOf(const PathRules& rules) {
    return rules.slash == PathRules::Slash::separates ? "\\/" : "\\";
}

/// Gives each part that is not empty to `take`, until that returns false.
template <typename Take>
bool eachPart(std::string_view text, std::string_view separators, Take&& take) {
    while (!text.empty()) {
        const auto end = std::min(text.find_first_of(separators), text.size());
        if (end != 0 && !take(text.substr(0, end)))
            return false;
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return true;
}

/// Out of a foreign name any drive is refused, also one that its path is relative to.
bool namesDrive(std::string_view text, std::string_view part, bool isFirst,
                const PathRules& rules) {
    if (rules.slash == PathRules::Slash::separates)
        return isDrive(isFirst ? part.substr(0, 2) : part);
    return isFirst && isDrive(part) && text.find_first_not_of('\\', part.size()) != text.npos;
}

/// Most paths have nothing in them that any rule looks at: no separator but single backslashes
/// between parts, no colon, no control and no part that begins with a dot.
bool isHarmless(std::string_view text, const PathRules& rules) {
    if (text.size() > rules.longest)
        return false;
    bool isStart = true;
    for (const char c : text) {
        if (c == '/' || c == ':' || isControl(c) || (isStart && (c == '.' || c == '\\')))
            return false;
        isStart = c == '\\';
    }
    return !isStart;
}

} // namespace

bool RelativePath::accepts(std::string_view text, const PathRules& rules) {
    if (isHarmless(text, rules))
        return true;
    const auto separators = separatorsOf(rules);
    if (text.empty() || separators.find(text.front()) != separators.npos)
        return false;
    if (rules.controls == PathRules::Controls::refused &&
        std::any_of(text.begin(), text.end(), isControl))
        return false;
    std::size_t parts = 0;
    std::size_t size = 0;
    const bool isPlain = eachPart(text, separators, [&](std::string_view part) {
        if (part == "." && rules.dot == PathRules::Dot::dropped)
            return true;
        if (leadsAway(part) || namesDrive(text, part, parts == 0, rules))
            return false;
        size += part.size() + (parts++ == 0 ? 0 : 1);
        return true;
    });
    return isPlain && parts > 0 && size <= rules.longest;
}

std::optional<RelativePath> RelativePath::parse(std::string_view text, const PathRules& rules) {
    if (!accepts(text, rules))
        return std::nullopt;
    std::string joined;
    joined.reserve(text.size());
    eachPart(text, separatorsOf(rules), [&](std::string_view part) {
        if (part != ".")
            joined.append(joined.empty() ? "" : "\\").append(part);
        return true;
    });
    return RelativePath(std::move(joined));
}

std::vector<std::string_view> RelativePath::parts() const {
    std::vector<std::string_view> parts;
    eachPart(text_, "\\", [&](std::string_view part) {
        parts.push_back(part);
        return true;
    });
    return parts;
}

bool isPlainName(std::string_view name) {
    return !name.empty() && !leadsAway(name) &&
           name.find_first_of("\\/\r\n") == std::string_view::npos;
}

} // namespace platform
