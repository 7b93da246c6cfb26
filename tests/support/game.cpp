// Test game directories.
#include "support/game.h"

#include <algorithm>
#include <atomic>
#include <fstream>
#include <sstream>

#include "support/system.h"

namespace test {

namespace fs = std::filesystem;

namespace {

bool isProgramsOwn(const std::string& path) {
    return path.starts_with("Vexillum/VXL-") || path == "Vexillum/MBefore.txt" ||
           path == "Vexillum/MAfter.txt";
}

} // namespace

Game::Game() {
    static std::atomic<int> number = 0;
    folder_ = temporaryFolder() /
              ("vexillum-test-" + std::to_string(processNumber()) + "-" + std::to_string(++number));
    removeAll(folder_);
    fs::create_directories(folder_);
    fs::copy(VEXILLUM_DATA, folder_ / "Vexillum", fs::copy_options::recursive);
    put("totala.exe", "the game");
}

Game::~Game() {
    removeAll(folder_);
}

fs::path Game::at(std::string_view path) const {
    return (folder_ / pathOf(path)).make_preferred();
}

void Game::put(std::string_view path, std::string_view content) const {
    fs::create_directories(at(path).parent_path());
    std::ofstream(at(path), std::ios::binary) << content;
    hideIfDotted(at(path));
}

void Game::makeFolder(std::string_view path) const {
    fs::create_directories(at(path));
}

void Game::remove(std::string_view path) const {
    fs::remove_all(at(path));
}

std::optional<std::string> Game::content(std::string_view path) const {
    if (!fs::is_regular_file(at(path)))
        return std::nullopt;
    std::ifstream file(at(path), std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

bool Game::has(std::string_view path) const {
    return fs::exists(fs::symlink_status(at(path))) && (tellsCaseApart || isSpelled(path));
}

/// Where any spelling finds an entry.
bool Game::isSpelled(std::string_view path) const {
    auto folder = folder_;
    for (const auto& part : pathOf(path)) {
        const auto entries = fs::directory_iterator(folder);
        if (std::none_of(begin(entries), end(entries),
                         [&part](const auto& entry) { return entry.path().filename() == part; }))
            return false;
        folder /= part;
    }
    return true;
}

Tree Game::files() const {
    Tree tree;
    for (const auto& entry : fs::recursive_directory_iterator(folder_)) {
        const auto path = entry.path().lexically_relative(folder_).generic_string();
        if (entry.is_regular_file() && !isProgramsOwn(path))
            tree[path] = *content(path);
    }
    return tree;
}

std::vector<std::string> Game::folders() const {
    std::vector<std::string> folders;
    for (const auto& entry : fs::recursive_directory_iterator(folder_)) {
        const auto path = entry.path().lexically_relative(folder_).generic_string();
        if (entry.is_directory() && !isProgramsOwn(path))
            folders.push_back(path);
    }
    std::sort(folders.begin(), folders.end());
    return folders;
}

std::string differences(const Tree& before, const Tree& after) {
    std::string text;
    const auto list = [&text](const Tree& tree, const Tree& other, const char* word) {
        for (const auto& [path, content] : tree)
            if (const auto at = other.find(path); at == other.end() || at->second != content)
                text += word + path + " (" + content.substr(0, 20) + ")\n";
    };
    list(before, after, "before: ");
    list(after, before, "after:  ");
    return text;
}

} // namespace test
