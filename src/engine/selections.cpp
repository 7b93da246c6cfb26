// The selection between two runs: seven text files, read at start, blanked behind the reset and
// written at an orderly end.
#include <array>
#include <utility>

#include "engine/frmMain.h"
#include "platform/text.h"

namespace engine {
namespace {

constexpr std::array<std::string_view, 7> selectionFiles = {
    "selTC.txt",   "selAI.txt",    "selRaces.txt", "selMods.txt",
    "selMaps.txt", "selUnits.txt", "selTrlx.txt"};

std::string asLines(std::span<const std::string> names) {
    std::string text;
    for (const auto& name : names)
        text += name + std::string(platform::lineBreak);
    return text;
}

std::string firstLineOr(const std::vector<std::string>& lines, std::string_view otherwise) {
    return lines.empty() || lines[0].empty() ? std::string(otherwise) : lines[0];
}

} // namespace

void frmMain::readSelections() {
    const auto linesOf = [this](std::string_view file) {
        return platform::splitLines(disk().readFile(inDataTree("VXL-Sel\\" + std::string(file))));
    };
    selTC = firstLineOr(linesOf("selTC.txt"), defaultTC);
    selAI = firstLineOr(linesOf("selAI.txt"), defaultAI);
    for (auto [names, file] : {std::pair(&selRaces, "selRaces.txt"),
                               {&selMods, "selMods.txt"},
                               {&selMaps, "selMaps.txt"},
                               {&selUnits, "selUnits.txt"}})
        for (const auto& name : linesOf(file))
            arrayAdd(*names, name);
    auto settings = linesOf("selTrlx.txt");
    settings.resize(3);
    if (settings[0] == "True")
        mnuMMenable_Click();
    if (settings[1] == "True")
        mnuMMcompress_Click();
    if (settings[2] == "True")
        mnuMMsmall_Click();
}

void frmMain::saveSels() {
    const auto word = [](const platform::MenuItem& item) {
        return std::string(item.checked() ? "True" : "False");
    };
    const std::array<std::string, 7> texts = {
        asLines({&selTC, 1}),
        asLines({&selAI, 1}),
        asLines(selRaces.entries()),
        asLines(selMods.entries()),
        asLines(selMaps.entries()),
        asLines(selUnits.entries()),
        asLines(std::array{word(mnuMMenable), word(mnuMMcompress), word(mnuMMsmall)})};
    for (std::size_t i = 0; i < texts.size(); ++i)
        disk().replaceFile(inDataTree("VXL-Sel\\" + std::string(selectionFiles[i])), texts[i]);
}

void frmMain::killSels() {
    for (const auto file : selectionFiles)
        disk().replaceFile(inDataTree("VXL-Sel\\" + std::string(file)), platform::lineBreak);
}

} // namespace engine
