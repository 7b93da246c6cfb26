// One file a type, in the order of the tabs, and one for the modifier.
#include "cycle/selection_files.h"

#include <functional>

#include "platform/failure.h"
#include "platform/text.h"
#include "platform/write_batch.h"

namespace cycle {
namespace {

constexpr std::string_view modifierFile = "selTrlx.txt";
constexpr std::string_view answersFile = "Answers.txt";
constexpr std::string_view afterGameFile = "AfterGame.txt";
constexpr std::string_view wrapperFile = "Wrapper.txt";
constexpr std::string_view wrapperIs = "Start the game with: ";
constexpr std::string_view comesBackIs = "Come back when the game ends: ";

std::string pathOf(const releases::GameDirectory& game, std::string_view file) {
    return game.inDataTree("VXL-Sel\\" + std::string(file));
}

/// Gives back why a file that is there cannot be read.
std::string readIfThere(const releases::GameDirectory& game, const std::string& path,
                        const std::function<void(const std::string&)>& take) {
    if (game.disk().kindOf(path) == platform::EntryKind::none)
        return {};
    try {
        take(game.disk().readFile(path));
    } catch (const platform::Failure& failure) {
        return platform::shownPath(path) + ": " + failure.reason();
    }
    return {};
}

/// All files or none, unless the disk fails in between.
void write(const releases::GameDirectory& game,
           const std::function<std::string(const releases::TypeInfo&)>& textOf,
           const std::string& modifierText) {
    platform::WriteBatch batch(game.disk());
    const auto put = [&](std::string_view file, const std::string& text) {
        game.disk().writePieces(pathOf(game, file), [&](const auto& sink) { sink(text); });
    };
    for (const auto* info : releases::typesByTab())
        put(info->selectionFile, textOf(*info));
    put(modifierFile, modifierText);
    batch.commit();
}

} // namespace

std::vector<std::string> readSels(const releases::GameDirectory& game, Selection& selection) {
    std::vector<std::string> unread;
    const auto textOf = [&](std::string_view file) {
        const auto path = pathOf(game, file);
        try {
            return game.disk().readFile(path);
        } catch (const platform::Failure& failure) {
            unread.push_back(platform::shownPath(path) + ": " + failure.reason());
            return std::string();
        }
    };
    for (const auto* info : releases::typesByTab())
        selection.readText(info->type, textOf(info->selectionFile));
    selection.readModifierText(textOf(modifierFile));
    return unread;
}

std::string readAnswers(const releases::GameDirectory& game, Decisions& answers) {
    const auto path = pathOf(game, answersFile);
    answers.clear();
    return readIfThere(game, path, [&](const auto& text) { answers.readText(text); });
}

std::string readComesBack(const releases::GameDirectory& game, bool& comesBack) {
    comesBack = false;
    return readIfThere(game, pathOf(game, afterGameFile), [&](const auto& text) {
        for (const auto& line : platform::splitLines(text))
            comesBack =
                comesBack || platform::equalIgnoringCase(line, std::string(comesBackIs) + "yes");
    });
}

void saveComesBack(const releases::GameDirectory& game, bool comesBack) {
    game.disk().replaceFile(pathOf(game, afterGameFile), std::string(comesBackIs) +
                                                             (comesBack ? "Yes" : "No") +
                                                             std::string(platform::lineBreak));
}

std::string readWrapper(const releases::GameDirectory& game, std::string& wrapper) {
    wrapper.clear();
    return readIfThere(game, pathOf(game, wrapperFile), [&](const auto& text) {
        for (const auto& line : platform::splitLines(text))
            if (platform::equalIgnoringCase(line.substr(0, wrapperIs.size()), wrapperIs))
                wrapper = line.substr(wrapperIs.size());
    });
}

void saveWrapper(const releases::GameDirectory& game, const std::string& wrapper) {
    game.disk().replaceFile(pathOf(game, wrapperFile), std::string(wrapperIs) +
                                                           platform::inOneLine(wrapper) +
                                                           std::string(platform::lineBreak));
}

void saveAnswers(const releases::GameDirectory& game, const Decisions& answers) {
    game.disk().replaceFile(pathOf(game, answersFile), answers.text());
}

void saveSels(const releases::GameDirectory& game, const Selection& selection) {
    write(
        game, [&](const auto& info) { return selection.textOf(info.type); },
        selection.modifierText());
    game.disk().flush();
}

void killSels(const releases::GameDirectory& game) {
    write(
        game, [](const auto& /*info*/) { return std::string(platform::lineBreak); },
        std::string(platform::lineBreak));
}

std::string textOf(const Selection& selection) {
    std::string text;
    for (const auto* info : releases::typesByTab())
        for (const auto& name : selection.namesOf(info->type))
            text.append(info->shortName).append(":").append(name).append(platform::lineBreak);
    return text;
}

void readText(std::string_view text, Selection& selection) {
    selection.revert();
    for (const auto& line : platform::splitLines(text))
        for (const auto* info : releases::typesByTab()) {
            const auto head = std::string(info->shortName) + ":";
            if (!line.starts_with(head))
                continue;
            const auto name = std::string_view(line).substr(head.size());
            if (info->isSingle())
                selection.choose(info->type, name);
            else
                selection.add(info->type, name);
        }
}

} // namespace cycle
