// A set as text: a part for each of the three things that it holds, in a fixed order, so that one
// that was cut off shows.
#include <algorithm>
#include <array>
#include <set>

#include "cycle/sets.h"
#include "platform/failure.h"
#include "platform/relative_path.h"
#include "platform/text.h"

namespace cycle {
namespace {

constexpr std::string_view firstLine = "Vexillum Set";
constexpr std::string_view remarks =
    "# What is chosen, in the order of ticking, and how. It may be changed by hand: a line for "
    "each\n"
    "# release. Lines like this one are passed over, and gone when Vexillum writes the set anew.\n";
constexpr std::array<std::string_view, 3> parts = {"[Releases]", "[Menu Modifier]", "[Answers]"};
constexpr std::size_t releasesPart = 1; ///< counted from 1
constexpr std::size_t modifierPart = 2;
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t longest = 4U << 20; ///< bytes

struct Setting {
    std::string_view name;
    bool Selection::MenuModifier::*value;
};
constexpr std::array<Setting, 3> settings = {{
    {"Use Trellis: ", &Selection::MenuModifier::enabled},
    {"Compress Menus: ", &Selection::MenuModifier::compress},
    {"Small Version: ", &Selection::MenuModifier::small},
}};

std::string_view trimmed(std::string_view line) {
    const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
    while (!line.empty() && isBlank(line.back()))
        line.remove_suffix(1);
    while (!line.empty() && isBlank(line.front()))
        line.remove_prefix(1);
    return line;
}

class SetReader {
  public:
    /// Why a text is no set.
    std::string read(std::string_view text) {
        if (text.starts_with(byteOrderMark))
            text.remove_prefix(byteOrderMark.size());
        if (text.size() > longest)
            return "It is too large for a set.";
        auto lines = platform::splitLines(text);
        for (auto& line : lines)
            line = std::string(trimmed(line));
        if (lines.empty() || lines.front() != firstLine)
            return "It is no set: its first line is not \"" + std::string(firstLine) + "\".";
        std::size_t at = 1;
        for (; at < lines.size() && part_ < parts.size(); ++at)
            if (const auto reason = take(lines[at]); !reason.empty())
                return "Line " + std::to_string(at + 1) + " " + reason + ":\r\n\r\n" +
                       shown(lines[at]);
        if (part_ < parts.size())
            return "It breaks off: the line \"" + std::string(parts[part_]) + "\" is missing.";
        set_.answers.readText(platform::joinLines(std::span(lines).subspan(at)));
        return {};
    }

    Set take() { return std::move(set_); }

  private:
    std::string take(std::string_view line) {
        if (line.empty() || line.starts_with('#'))
            return {};
        if (line == parts[part_]) {
            ++part_;
            return {};
        }
        if (part_ == releasesPart)
            return takeRelease(line);
        if (part_ == modifierPart && takeSetting(line))
            return {};
        return "says nothing that belongs there";
    }

    std::string takeRelease(std::string_view line) {
        const auto owner = readOwner(line);
        if (!owner)
            return "names no release";
        if (!platform::isPlainName(releases::folderForm(owner->name)))
            return "has a name that no release can have";
        if (!seen_.insert(*owner).second)
            return {};
        auto& selection = set_.selection;
        if (!releases::infoOf(owner->type).isSingle())
            selection.add(owner->type, owner->name);
        else if (!single_.insert(owner->type).second)
            return "chooses one more where there can be but one";
        else
            selection.choose(owner->type, releases::folderForm(owner->name));
        return {};
    }

    bool takeSetting(std::string_view line) {
        for (const auto& setting : settings)
            for (const bool value : {true, false})
                if (line == std::string(setting.name) + (value ? "Yes" : "No")) {
                    set_.selection.modifier.*setting.value = value;
                    return true;
                }
        return false;
    }

    /// As much of a line as a message can hold.
    static std::string shown(std::string_view line) {
        constexpr std::size_t most = 100;
        std::string text(line.substr(0, most));
        std::replace_if(
            text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; },
            ' ');
        return text + (line.size() > most ? "..." : "");
    }

    Set set_;
    std::size_t part_ = 0; ///< how many have begun
    std::set<Owner> seen_;
    std::set<releases::ReleaseType> single_;
};

} // namespace

std::string textOf(const Set& set) {
    std::string text = std::string(firstLine) + "\n" + std::string(remarks);
    const auto begin = [&](std::size_t part) { text.append(parts[part - 1]).append("\n"); };
    begin(releasesPart);
    for (const auto* info : releases::typesByTab())
        for (const auto& name : set.selection.namesOf(info->type))
            if (platform::isPlainName(releases::folderForm(name)))
                text += Owner{info->type, info->isSingle() ? releases::displayForm(name) : name}
                            .text() +
                        "\n";
    begin(modifierPart);
    for (const auto& setting : settings)
        text.append(setting.name)
            .append(set.selection.modifier.*setting.value ? "Yes" : "No")
            .append("\n");
    begin(parts.size());
    return platform::withLineBreaks(text + set.answers.text());
}

std::string readSet(std::string_view text, Set& set) {
    SetReader reader;
    auto reason = reader.read(text);
    if (reason.empty())
        set = reader.take();
    return reason;
}

std::string readSetFile(const releases::GameDirectory& game, const std::string& path, Set& set) {
    try {
        // What is too large is not to be read first.
        return readSet(game.disk().sizeOf(path) > longest ? std::string(longest + 1, ' ')
                                                          : game.disk().readFile(path),
                       set);
    } catch (const platform::Failure& failure) {
        return platform::shownPath(path) + ": " + failure.reason();
    }
}

} // namespace cycle
