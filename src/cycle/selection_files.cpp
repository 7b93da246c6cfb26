// One file a type, in the order of the tabs, and one for the modifier.
#include "cycle/selection_files.h"

#include "platform/failure.h"
#include "platform/text.h"

namespace cycle {
namespace {

constexpr std::string_view modifierFile = "selTrlx.txt";

std::string pathOf(const releases::GameDirectory& game, std::string_view file) {
    return game.inDataTree("VXL-Sel\\" + std::string(file));
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

void saveSels(const releases::GameDirectory& game, const Selection& selection) {
    for (const auto* info : releases::typesByTab())
        game.disk().replaceFile(pathOf(game, info->selectionFile), selection.textOf(info->type));
    game.disk().replaceFile(pathOf(game, modifierFile), selection.modifierText());
}

void killSels(const releases::GameDirectory& game) {
    for (const auto* info : releases::typesByTab())
        game.disk().replaceFile(pathOf(game, info->selectionFile), platform::lineBreak);
    game.disk().replaceFile(pathOf(game, modifierFile), platform::lineBreak);
}

} // namespace cycle
