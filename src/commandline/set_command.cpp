// The saved selection, changed by assignments. All of them are understood before one counts.
#include <algorithm>

#include "cycle/selection_files.h"
#include "platform/text.h"
#include "releases/release_types.h"
#include "verbs.h"

namespace commandline {
namespace {

enum class How { exactly, more, less };

struct Assignment {
    std::string text;
    std::string name;
    std::string value;
    How how = How::exactly;
};

Assignment assignmentOf(const std::string& text) {
    const auto equals = text.find('=');
    if (equals == std::string::npos || equals == 0)
        throw WrongUse{"\"" + text + "\" is no assignment.", Verb::set};
    Assignment assignment{text, text.substr(0, equals), text.substr(equals + 1)};
    const auto sign = assignment.name.back();
    if (sign == '+' || sign == '-') {
        assignment.how = sign == '+' ? How::more : How::less;
        assignment.name.pop_back();
    }
    return assignment;
}

bool isOn(const Assignment& assignment) {
    const auto& value = assignment.value;
    if (assignment.how == How::exactly && platform::equalIgnoringCase(value, "on"))
        return true;
    if (assignment.how == How::exactly && platform::equalIgnoringCase(value, "off"))
        return false;
    throw WrongUse{"\"" + assignment.text + "\" can be on or off.", Verb::set};
}

/// False where the name is none of the modifier's.
bool setModifier(cycle::Selection::MenuModifier& modifier, const Assignment& assignment) {
    struct Row {
        std::string_view name;
        bool& flag;
    };
    for (const auto& row : {Row{"modifier", modifier.enabled}, Row{"compress", modifier.compress},
                            Row{"small", modifier.small}})
        if (platform::equalIgnoringCase(row.name, assignment.name)) {
            row.flag = isOn(assignment);
            return true;
        }
    return false;
}

/// The release in the spelling that it has. Throws Stop where there is none.
std::string releaseOf(const Workspace& work, const releases::TypeInfo& info,
                      const std::string& name) {
    const auto names = work.store.releasesOf(info.type);
    auto found = std::ranges::find(names, name);
    if (found == names.end())
        found = std::ranges::find_if(
            names, [&](const auto& each) { return platform::equalIgnoringCase(each, name); });
    if (found == names.end() && !(info.isSingle() && name == info.defaultName))
        throw Stop{failed, "There is no " + cycle::Owner{info.type, name}.text() +
                               ". Nothing was changed."};
    return found == names.end() ? name : *found;
}

void setOne(const Workspace& work, cycle::Selection& selection, const releases::TypeInfo& info,
            const Assignment& assignment) {
    if (assignment.how != How::exactly)
        throw WrongUse{"\"" + assignment.text + "\": there is always one " +
                           std::string(info.typeName) + ".",
                       Verb::set};
    const auto name = assignment.value.empty() ? std::string(info.defaultName) : assignment.value;
    const auto release = releaseOf(work, info, name);
    // A total conversion is a new ground: nothing chosen for another one stays.
    if (info.type == releases::ReleaseType::tc)
        selection.revert();
    selection.choose(info.type, releases::folderForm(release));
}

void setMany(const Workspace& work, cycle::Selection& selection, const releases::TypeInfo& info,
             const Assignment& assignment) {
    if (assignment.how == How::exactly)
        selection.readText(info.type, "");
    else if (assignment.value.empty())
        throw WrongUse{"\"" + assignment.text + "\" lacks a name.", Verb::set};
    // What is gone can be taken out all the same.
    if (assignment.how == How::less)
        return selection.takeOut(info.type, assignment.value);
    if (assignment.value.empty())
        return;
    const auto release = releaseOf(work, info, assignment.value);
    if (!selection.has(info.type, release))
        selection.add(info.type, release);
}

/// What runs the game is none of the selection's. Throws WrongUse.
std::optional<std::string> wrapperOf(const Assignment& assignment) {
    if (!platform::equalIgnoringCase(assignment.name, "wrapper"))
        return std::nullopt;
    const auto reason = platform::reasonAgainstWrapper(assignment.value);
    if (assignment.how != How::exactly || !reason.empty())
        throw WrongUse{"The game cannot be started by \"" + assignment.text + "\". " + reason,
                       Verb::set};
    return assignment.value;
}

void carryOut(const Workspace& work, cycle::Selection& selection, const Assignment& assignment) {
    if (setModifier(selection.modifier, assignment))
        return;
    const auto types = releases::releaseTypes();
    const auto type = std::ranges::find_if(types, [&](const auto& info) {
        return platform::equalIgnoringCase(info.shortName, assignment.name);
    });
    if (type == types.end())
        throw WrongUse{"There is nothing called \"" + assignment.name + "\" to be set.", Verb::set};
    (type->isSingle() ? setOne : setMany)(work, selection, *type, assignment);
}

} // namespace

/// Of an applied launch the saved selection tells what lies in the game directory.
ExitCode set(Workspace& work) {
    std::vector<Assignment> assignments;
    for (const auto& text : work.line.operands)
        assignments.push_back(assignmentOf(text));
    std::optional<std::string> wrapper;
    std::erase_if(assignments, [&](const auto& each) {
        const auto given = wrapperOf(each);
        if (given)
            wrapper = given;
        return given.has_value();
    });
    if (assignments.empty()) {
        cycle::saveWrapper(work.game, wrapper.value_or(""));
        return done;
    }
    work.refuseApplied("another selection");
    auto selection = work.savedSelection();
    for (const auto& assignment : assignments)
        carryOut(work, selection, assignment);
    cycle::saveSels(work.game, selection);
    if (wrapper)
        cycle::saveWrapper(work.game, *wrapper);
    return work.questions.told() == 0 ? done : failed;
}

} // namespace commandline
