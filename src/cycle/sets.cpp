// A set is a file of its name; whatever else lies in the folder of the sets is let alone.
#include "cycle/sets.h"

#include <algorithm>
#include <array>

#include "platform/failure.h"
#include "platform/relative_path.h"
#include "platform/text.h"
#include "spellings.h"

namespace cycle {
namespace {

constexpr std::string_view ending = ".txt";
constexpr std::size_t longestName = 100; ///< bytes

bool isDevice(std::string_view name) {
    const auto stem = platform::foldCase(name.substr(0, name.find('.')));
    constexpr std::array<std::string_view, 4> devices = {"con", "prn", "aux", "nul"};
    const bool isPort = stem.size() == 4 && stem.back() >= '0' && stem.back() <= '9' &&
                        (stem.starts_with("com") || stem.starts_with("lpt"));
    return isPort || std::find(devices.begin(), devices.end(), stem) != devices.end();
}

bool hasOddCharacter(std::string_view name) {
    return std::any_of(name.begin(), name.end(), [](char c) {
        return static_cast<unsigned char>(c) < ' ' || c == '\x7f' ||
               std::string_view("\\:*?\"<>|").find(c) != std::string_view::npos;
    });
}

} // namespace

std::vector<Owner> takeOutMissing(Selection& selection, const releases::Store& store) {
    std::vector<Owner> missing;
    Spellings spellings(store);
    for (const auto* info : releases::typesByTab()) {
        const auto chosen = selection.namesOf(info->type);
        for (const auto& entry : std::vector<std::string>(chosen.begin(), chosen.end())) {
            const Owner release{info->type,
                                info->isSingle() ? releases::displayForm(entry) : entry};
            if (info->isSingle() && release.name == info->defaultName)
                continue;
            const auto name = spellings.here(release);
            if (!name)
                missing.push_back(release);
            if (name && *name != release.name && !selection.has(info->type, *name))
                selection.rename(info->type, release.name, *name);
            else if (name != release.name)
                selection.forget(info->type, release.name);
        }
    }
    return missing;
}

std::string Sets::folder() const {
    return game_.inDataTree("VXL-Sets");
}

std::string Sets::fileOf(std::string_view name) const {
    return folder() + "\\" + releases::folderForm(name) + std::string(ending);
}

std::vector<std::string> Sets::names() const {
    std::vector<std::string> names;
    if (const auto listed = game_.list(folder()))
        for (const auto& file : listed->files)
            if (platform::endsWithIgnoringCase(file, ending) && file.size() > ending.size())
                names.push_back(releases::displayForm(file.substr(0, file.size() - ending.size())));
    std::sort(names.begin(), names.end(), platform::lessIgnoringCase);
    return names;
}

bool Sets::has(std::string_view name) const {
    return platform::isPlainName(releases::folderForm(name)) &&
           game_.disk().kindOf(fileOf(name)) == platform::EntryKind::file;
}

std::string Sets::reasonToHaveNone(std::string_view name) const {
    return has(name) ? "" : "There is no set \"" + std::string(name) + "\".";
}

std::string Sets::reasonAgainst(std::string_view name) {
    const auto file = releases::folderForm(name);
    if (file.find_first_not_of(' ') == std::string::npos)
        return "A set must have a name.";
    if (name.size() > longestName)
        return "The name is too long.";
    if (hasOddCharacter(file))
        return "The name of a set cannot hold a line break or any of these: \\ : * ? \" < > |";
    if (!platform::isPlainName(file) || file.front() == '.' || file.front() == ' ' ||
        file.back() == '.' || file.back() == ' ')
        return "The name of a set can neither begin nor end with a dot or a blank.";
    if (isDevice(file))
        return "\"" + std::string(name) + "\" is the name of a device on some systems.";
    return {};
}

std::string Sets::load(std::string_view name, Set& set) const {
    auto reason = reasonToHaveNone(name);
    return reason.empty() ? readSetFile(game_, fileOf(name), set) : reason;
}

std::string Sets::save(std::string_view name, const Set& set) const {
    if (!has(name))
        if (auto reason = reasonAgainst(name); !reason.empty())
            return reason;
    const auto text = textOf(set);
    // What could not be read again is not to take the place of what can.
    Set again;
    if (auto reason = readSet(text, again); !reason.empty())
        return reason;
    try {
        if (game_.disk().kindOf(folder()) == platform::EntryKind::none)
            game_.disk().makeFolder(folder());
        game_.disk().replaceFile(fileOf(name), text);
        game_.disk().flush();
    } catch (const platform::Failure& failure) {
        return failure.what();
    }
    return {};
}

std::string Sets::rename(std::string_view name, std::string_view newName) const {
    for (const auto& reason : {reasonToHaveNone(name), reasonAgainst(newName)})
        if (!reason.empty())
            return reason;
    try {
        if (!game_.disk().renameEntry(fileOf(name),
                                      releases::folderForm(newName) + std::string(ending)))
            return "There is a set \"" + std::string(newName) + "\" already.";
        game_.disk().flush();
    } catch (const platform::Failure& failure) {
        return failure.what();
    }
    return {};
}

std::string Sets::remove(std::string_view name) const {
    if (auto reason = reasonToHaveNone(name); !reason.empty())
        return reason;
    try {
        game_.disk().removeFile(fileOf(name));
        game_.disk().flush();
    } catch (const platform::Failure& failure) {
        return failure.what();
    }
    return {};
}

std::vector<std::string> Sets::renameRelease(releases::ReleaseType type, std::string_view name,
                                             std::string_view newName) const {
    std::vector<std::string> failures;
    for (const auto& setName : names()) {
        Set set;
        if (!load(setName, set).empty())
            continue;
        const auto before = textOf(set);
        set.selection.rename(type, name, newName);
        set.answers.rename(type, name, newName);
        if (textOf(set) == before)
            continue;
        if (const auto reason = save(setName, set); !reason.empty())
            failures.push_back(setName + ": " + reason);
    }
    return failures;
}

} // namespace cycle
