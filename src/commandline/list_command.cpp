// What there is to choose from, and what is chosen.
#include <algorithm>

#include "json.h"
#include "platform/failure.h"
#include "releases/release_types.h"
#include "verbs.h"

namespace commandline {
namespace {

struct Release {
    cycle::Owner owner;
    bool isChosen = false;
};

bool isChosen(const cycle::Selection& selection, const cycle::Owner& owner) {
    const auto form =
        releases::infoOf(owner.type).isSingle() ? releases::folderForm(owner.name) : owner.name;
    return std::ranges::any_of(selection.namesOf(owner.type), [&](const auto& name) {
        return platform::equalIgnoringCase(name, form);
    });
}

/// By type in the order of the tabs, then in that of a listing.
std::vector<Release> releasesOf(const Workspace& work, const cycle::Selection& selection) {
    const auto applied = work.appliedLooseFiles();
    std::vector<Release> found;
    for (const auto* info : releases::typesByTab()) {
        auto names = work.store.releasesOf(info->type);
        for (const auto& loose : applied)
            if (loose.type == info->type)
                names.push_back(loose.name);
        std::ranges::stable_sort(names, platform::lessIgnoringCase);
        for (auto& name : names) {
            const cycle::Owner owner{info->type, std::move(name)};
            found.push_back({owner, isChosen(selection, owner)});
        }
    }
    return found;
}

Json jsonOf(const cycle::Selection::MenuModifier& modifier) {
    return {
        {"enabled", modifier.enabled}, {"compress", modifier.compress}, {"small", modifier.small}};
}

Json selectionOf(const cycle::Selection& selection) {
    auto chosen = Json::object();
    for (const auto* info : releases::typesByTab()) {
        auto names = Json::array();
        for (const auto& name : selection.namesOf(info->type))
            names.push_back(
                platform::toUtf8(info->isSingle() ? releases::displayForm(name) : name));
        chosen[std::string(info->shortName)] = std::move(names);
    }
    return chosen;
}

void printJson(const Workspace& work, const cycle::Selection& selection,
               const std::vector<cycle::Owner>& missing) {
    Json document = {{"directory", shown(work.game.TADir())},
                     {"state", work.state()},
                     {"releases", Json::array()},
                     {"selection", selectionOf(selection)},
                     {"missing", Json::array()},
                     {"modifier", jsonOf(selection.modifier)},
                     {"sets", Json::array()}};
    for (const auto& release : releasesOf(work, selection)) {
        auto row = commandline::jsonOf(release.owner);
        row["chosen"] = release.isChosen;
        document["releases"].push_back(std::move(row));
    }
    for (const auto& owner : missing)
        document["missing"].push_back(commandline::jsonOf(owner));
    for (const auto& name : cycle::Sets(work.game).names())
        document["sets"].push_back(platform::toUtf8(name));
    print(work.machine.output, document);
}

void printText(const Workspace& work, const cycle::Selection& selection,
               const std::vector<cycle::Owner>& missing) {
    auto& output = work.machine.output;
    const auto found = releasesOf(work, selection);
    for (const auto* info : releases::typesByTab()) {
        output << info->tabCaption << '\n';
        for (const auto& release : found)
            if (release.owner.type == info->type)
                output << (release.isChosen ? "  [x] " : "  [ ] ") << printable(release.owner.name)
                       << '\n';
        for (const auto& owner : missing)
            if (owner.type == info->type)
                output << "  [x] " << printable(owner.name) << " (not found)\n";
    }
    const auto& modifier = selection.modifier;
    output << "Menu modifier\n  "
           << (modifier.enabled ? "on" : "off") +
                  std::string(modifier.compress ? ", compress" : "") +
                  (modifier.small ? ", small" : "")
           << "\nSets\n";
    for (const auto& name : cycle::Sets(work.game).names())
        output << "  " << printable(name) << '\n';
    output << "Game directory\n  " << work.state() << '\n';
}

} // namespace

ExitCode list(Workspace& work) {
    const auto selection = work.savedSelection();
    const auto missing = work.missing(selection);
    (work.line.json ? printJson : printText)(work, selection, missing);
    return work.questions.told() == 0 ? done : failed;
}

} // namespace commandline
