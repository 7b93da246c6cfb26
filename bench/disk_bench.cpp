// Moves by the disk against a bare loop of rename over the same paths, and moves in a folder of
// very many files against moves in a small one.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include "bench.h"
#include "platform/disk.h"

namespace {

namespace fs = std::filesystem;
using bench::Seconds;

constexpr int rounds = 7;
constexpr int moves = 20'000;
constexpr int filesInFolder = 50;
constexpr int hugeFolder = 400'000;
constexpr int movesInHugeFolder = 2000;

void put(const fs::path& path) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
    ::close(file);
}

struct Move {
    std::string from;
    std::string to;
};

/// A game directory that is gone with the object.
class Game {
  public:
    explicit Game(fs::path root) : root_(std::move(root)) {
        fs::remove_all(root_);
        fs::create_directories(root_);
        disk->setGameDirectory(root_.string());
    }
    ~Game() { fs::remove_all(root_); }
    Game(const Game&) = delete;
    Game& operator=(const Game&) = delete;

    const fs::path& root() const { return root_; }
    std::string in(const std::string& path) const { return root_.string() + "\\" + path; }

    Seconds timeOf(const std::vector<Move>& list, bool back) {
        ::sync();
        return bench::timeOf([&] {
            for (const auto& move : list)
                if (!disk->moveEntry(back ? move.to : move.from, back ? move.from : move.to))
                    std::puts("a move failed");
        });
    }

    std::unique_ptr<platform::Disk> disk = platform::makeDisk();

  private:
    fs::path root_;
};

Seconds timeOfRenames(const std::vector<Move>& list, bool back) {
    ::sync();
    return bench::timeOf([&] {
        for (const auto& move : list)
            std::rename((back ? move.to : move.from).c_str(), (back ? move.from : move.to).c_str());
    });
}

void movesAgainstRenames(const fs::path& where, const std::string& name) {
    Game game(where / "disk-bench-game");
    std::vector<Move> ours;
    std::vector<Move> bare;
    for (int i = 0; i < moves; ++i) {
        const int folder = i / filesInFolder;
        const auto release = "Mod-" + std::to_string(folder / 10);
        const auto sub = "sub" + std::to_string(folder % 10);
        const auto file = "release" + std::to_string(i);
        fs::create_directories(game.root() / "Vexillum" / release / sub);
        fs::create_directories(game.root() / sub);
        put(game.root() / "Vexillum" / release / sub / file);
        ours.push_back({game.in("Vexillum\\" + release + "\\" + sub + "\\" + file),
                        game.in(sub + "\\" + file)});
        bare.push_back({game.root() / "Vexillum" / release / sub / file, game.root() / sub / file});
    }
    std::vector<Seconds> time[2];
    std::vector<Seconds> limit[2];
    for (int i = 0; i < rounds; ++i) {
        for (const bool back : {false, true})
            limit[back].push_back(timeOfRenames(bare, back));
        for (const bool back : {false, true})
            time[back].push_back(game.timeOf(ours, back));
    }
    bench::report("20,000 moves there, " + name, bench::median(time[0]), bench::median(limit[0]),
                  1.1);
    bench::report("20,000 moves back, " + name, bench::median(time[1]), bench::median(limit[1]),
                  1.1);
}

Seconds movesBeside(const fs::path& where, int files) {
    Game game(where / "disk-bench-game");
    fs::create_directories(game.root() / "big");
    fs::create_directories(game.root() / "from");
    for (int i = 0; i < files; ++i)
        put(game.root() / "big" / ("file" + std::to_string(i)));
    std::vector<Move> list;
    for (int i = 0; i < movesInHugeFolder; ++i) {
        const auto name = "moved" + std::to_string(i);
        put(game.root() / "from" / name);
        list.push_back({game.in("from\\" + name), game.in("big\\" + name)});
    }
    // The first look at a folder lists it.
    game.disk->kindOf(game.in("big\\none"));
    std::vector<Seconds> times;
    times.reserve(rounds);
    for (int i = 0; i < rounds; ++i)
        times.push_back(game.timeOf(list, false) + game.timeOf(list, true));
    return bench::median(times);
}

} // namespace

int main() {
    const bool hasMemory = ::access("/dev/shm", W_OK) == 0;
    const auto here = fs::current_path();
    if (hasMemory)
        movesAgainstRenames("/dev/shm", "in memory");
    movesAgainstRenames(here, "on this disk");
    for (const auto& where : {fs::path("/dev/shm"), here}) {
        if (where != here && !hasMemory)
            continue;
        const auto small = movesBeside(where, 100);
        bench::report("moves beside 400,000 files, " + where.string(),
                      movesBeside(where, hugeFolder), small, 2);
    }
}
