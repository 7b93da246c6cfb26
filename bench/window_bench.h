// What the benchmarks of the window share: its game directory, and its widgets by name.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include <QApplication>

namespace bench {

inline void put(const std::filesystem::path& path, const std::string& content) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
}

/// A data tree without releases, and nothing else.
inline void makeGame(const std::filesystem::path& root) {
    std::filesystem::remove_all(root);
    for (const auto* folder : {"TC-Cavedog TA", "AI-Cavedog AI"})
        std::filesystem::create_directories(root / "Vexillum" / folder);
    for (const auto* name : {"TC", "AI", "Races", "Mods", "Maps", "Units", "Trlx"})
        put(root / "Vexillum/VXL-Sel" / ("sel" + std::string(name) + ".txt"), "");
    put(root / "Vexillum/VXL-Changes/Internal.txt", "MKDIRS\r\nMOVES\r\n");
}

/// The widget or action of that name. Without it the benchmark ends.
template <typename Object>
Object* find(const char* name) {
    for (auto* window : QApplication::topLevelWidgets())
        if (auto* object = window->findChild<Object*>(name))
            return object;
    std::fprintf(stderr, "There is no %s.\n", name);
    std::exit(1);
}

} // namespace bench
