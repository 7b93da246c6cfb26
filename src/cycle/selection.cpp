// The selection and its texts.
#include "cycle/selection.h"

#include <algorithm>
#include <array>

#include "platform/text.h"

namespace cycle {

using releases::ReleaseType;
using releases::StringArray;

Selection::Selection() : names_(releases::releaseTypes().size()) {
    revert();
}

StringArray& Selection::arrayOf(ReleaseType type) {
    return names_[static_cast<std::size_t>(type) - 1];
}

const StringArray& Selection::arrayOf(ReleaseType type) const {
    return names_[static_cast<std::size_t>(type) - 1];
}

std::span<const std::string> Selection::namesOf(ReleaseType type) const {
    return arrayOf(type).entries();
}

int Selection::countOf(ReleaseType type) const {
    return arrayOf(type).upperBound();
}

bool Selection::has(ReleaseType type, std::string_view name) const {
    const auto names = namesOf(type);
    return std::find(names.begin(), names.end(), name) != names.end();
}

const std::string& Selection::theOne(ReleaseType type) const {
    return namesOf(type).front();
}

void Selection::choose(ReleaseType type, std::string_view name) {
    arrayOf(type) = {std::string(name)};
}

void Selection::add(ReleaseType type, std::string_view name) {
    releases::arrayAdd(arrayOf(type), name);
}

void Selection::takeOut(ReleaseType type, std::string_view name) {
    auto& names = arrayOf(type);
    const auto entries = names.entries();
    const auto at = std::find(entries.begin(), entries.end(), name);
    if (at != entries.end())
        releases::arrayRemoveAt(names, static_cast<int>(at - entries.begin()) + 1);
    else
        releases::arrayRemove(names, name);
}

bool Selection::rename(ReleaseType type, std::string_view name, std::string_view newName) {
    if (releases::infoOf(type).isSingle()) {
        const bool chosen = theOne(type) == releases::folderForm(name);
        if (chosen)
            choose(type, releases::folderForm(newName));
        return chosen;
    }
    const bool chosen = has(type, name);
    StringArray renamed;
    for (const auto& entry : namesOf(type))
        renamed.add(entry == name ? std::string(newName) : entry);
    arrayOf(type) = std::move(renamed);
    return chosen;
}

bool Selection::forget(ReleaseType type, std::string_view name) {
    if (releases::infoOf(type).isSingle())
        return rename(type, name, releases::infoOf(type).defaultName);
    const bool chosen = has(type, name);
    if (chosen)
        takeOut(type, name);
    return chosen;
}

void Selection::revert() {
    for (const auto& info : releases::releaseTypes())
        if (info.isSingle())
            choose(info.type, info.defaultName);
        else
            arrayOf(info.type).clear();
}

std::string Selection::textOf(ReleaseType type) const {
    return platform::joinLines(namesOf(type));
}

void Selection::readText(ReleaseType type, std::string_view bytes) {
    const auto lines = platform::splitLines(bytes);
    const auto& info = releases::infoOf(type);
    if (info.isSingle())
        return choose(type, lines.empty() || lines[0].empty() ? info.defaultName : lines[0]);
    arrayOf(type).clear();
    // A blanked file is one blank line.
    for (const auto& line : lines)
        if (!line.empty())
            add(type, line);
}

std::string Selection::modifierText() const {
    const auto word = [](bool set) { return std::string_view(set ? "True" : "False"); };
    return platform::joinLines(
        std::array{word(modifier.enabled), word(modifier.compress), word(modifier.small)});
}

void Selection::readModifierText(std::string_view bytes) {
    auto lines = platform::splitLines(bytes);
    lines.resize(3);
    modifier = {lines[0] == "True", lines[1] == "True", lines[2] == "True"};
}

} // namespace cycle
