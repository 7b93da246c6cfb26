// One file a type, in the order of the tabs, and one for the modifier.
#include "cycle/selection_files.h"

#include "platform/text.h"

namespace cycle {
namespace {

constexpr std::string_view modifierFile = "selTrlx.txt";

std::string pathOf(const releases::GameDirectory& game, std::string_view file) {
    return game.inDataTree("VXL-Sel\\" + std::string(file));
}

} // namespace

void readSels(const releases::GameDirectory& game, Selection& selection) {
    for (const auto* info : releases::typesByTab())
        selection.readText(info->type, game.disk().readFile(pathOf(game, info->selectionFile)));
    selection.readModifierText(game.disk().readFile(pathOf(game, modifierFile)));
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
