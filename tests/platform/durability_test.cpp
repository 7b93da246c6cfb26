// What a full disk, a stop or a power cut at any moment leaves of writes and moves.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/failure.h"
#include "platform/memory_disk.h"
#include "platform/write_batch.h"
#include "support/faulty_disk.h"
#include "support/system.h"

namespace platform {
namespace {

using testing::AnyOf;
using testing::Eq;

using Files = std::map<std::string, std::string>;
using Work = std::function<void(Disk& disk)>;

/// A fresh game directory with a disk of its own in "other".
struct Machine {
    explicit Machine(platform::MemoryDiskKind kind = {})
        : memory(std::make_shared<platform::MemoryDisk>(kind)) {
        memory->put("/game/totala.exe", "the game");
        other = memory->mount("/game/other");
    }
    Files files() const { return memory->files("/game"); }

    std::unique_ptr<Disk> disk(test::FaultyRawDisk::BeforeChange hook) const {
        auto made = test::faultyDisk(memory, std::move(hook));
        made->setGameDirectory("/game");
        return made;
    }
    std::unique_ptr<Disk> disk() const {
        return disk([](const test::RawChange&) { return std::error_code(); });
    }

    std::shared_ptr<platform::MemoryDisk> memory;
    std::uint64_t other = 0;
};

using Preparation = std::function<void(platform::MemoryDisk& memory)>;
using Look = std::function<void(const Machine& machine, bool isDone)>;

/// Whether names had arrived on the game's disk, and on the other one.
const std::vector<std::set<std::uint64_t>> powerCuts = {{}, {0}, {1}, {0, 1}};

/// Cuts the work off before each of its changes in turn, and at last behind it.
void stopEverywhere(const Preparation& prepare, const Work& work, bool withPower, const Look& look,
                    platform::MemoryDiskKind kind = {}) {
    for (const auto& arrived : powerCuts) {
        bool isDone = false;
        for (int cut = 1; !isDone; ++cut) {
            Machine machine(kind);
            prepare(*machine.memory);
            const auto disk = machine.disk([&](const test::RawChange& change) {
                if (change.number == cut)
                    throw test::PowerCut();
                return std::error_code();
            });
            try {
                work(*disk);
                isDone = true;
            } catch (const test::PowerCut&) {
            }
            if (withPower)
                machine.memory->losePower(arrived);
            SCOPED_TRACE("before change " + std::to_string(cut) + ", names arrived on " +
                         testing::PrintToString(arrived));
            look(machine, isDone);
        }
    }
}

/// Lets each change of the work fail in turn. Gives the look the failure, or null behind work that
/// was done all the same.
void failEverywhere(const Preparation& prepare, const Work& work,
                    const std::function<void(const Machine& machine, const Failure* failure)>& look,
                    platform::MemoryDiskKind kind = {}) {
    bool wasReached = true;
    for (int fault = 1; wasReached; ++fault) {
        Machine machine(kind);
        prepare(*machine.memory);
        wasReached = false;
        const auto disk = machine.disk([&](const test::RawChange& change) {
            wasReached = wasReached || change.number == fault;
            return change.number == fault ? std::make_error_code(std::errc::no_space_on_device)
                                          : std::error_code();
        });
        SCOPED_TRACE("failure of change " + std::to_string(fault));
        try {
            work(*disk);
            look(machine, nullptr);
        } catch (const Failure& failure) {
            look(machine, &failure);
        }
    }
}

/// Names as they are without the part files of what was cut off.
Files withoutParts(Files files) {
    std::erase_if(files, [](const auto& each) {
        return each.first.find(".vexillum-part-") != std::string::npos;
    });
    return files;
}

struct WriteRow {
    const char* name;
    Work work;
    bool isThereToStay; ///< when the call returns
};

const WriteRow writes[] = {
    {"replaceFile", [](Disk& disk) { disk.replaceFile("/game\\journal", "new and long"); }, true},
    {"writePieces",
     [](Disk& disk) {
         disk.writePieces("/game\\journal", [](const PieceSink& sink) {
             sink("new ");
             sink("and long");
         });
     },
     false},
    {"copyFile", [](Disk& disk) { disk.copyFile("/source", "/game\\Journal"); }, false},
};

TEST(Durability, a_file_written_over_is_the_old_or_the_new_one_whole) {
    for (const auto& row : writes) {
        SCOPED_TRACE(row.name);
        const Preparation prepare = [](platform::MemoryDisk& memory) {
            memory.put("/game/journal", "old");
            memory.put("/source", "new and long");
        };
        stopEverywhere(prepare, row.work, true, [&](const Machine& machine, bool isDone) {
            const auto content = machine.memory->content("/game/journal");
            EXPECT_THAT(content, AnyOf(Eq("old"), Eq("new and long")));
            if (isDone && row.isThereToStay) {
                EXPECT_EQ(content, "new and long");
            }
        });
        failEverywhere(prepare, row.work, [](const Machine& machine, const Failure* failure) {
            const auto content = machine.memory->content("/game/journal");
            EXPECT_THAT(content, AnyOf(Eq("old"), Eq("new and long")));
            EXPECT_TRUE(failure != nullptr || content == "new and long");
            EXPECT_TRUE(failure == nullptr || failure->is(std::errc::no_space_on_device));
            EXPECT_EQ(machine.files(), withoutParts(machine.files()));
        });
    }
}

TEST(Durability, a_new_file_is_whole_or_not_there_wherever_the_program_stops) {
    for (const auto& row : writes) {
        SCOPED_TRACE(row.name);
        const Preparation prepare = [](platform::MemoryDisk& memory) {
            memory.put("/source", "new and long");
        };
        stopEverywhere(prepare, row.work, false, [](const Machine& machine, bool isDone) {
            for (const auto& [path, content] : withoutParts(machine.files()))
                EXPECT_THAT(content, AnyOf(Eq("the game"), Eq("new and long"))) << path;
            EXPECT_TRUE(!isDone || withoutParts(machine.files()).size() == 2);
        });
    }
}

TEST(Durability, a_journal_in_a_new_folder_is_there_to_stay) {
    stopEverywhere([](platform::MemoryDisk& /*memory*/) {},
                   [](Disk& disk) {
                       disk.makeFolder("/game\\changes");
                       disk.replaceFile("/game\\changes\\journal", "new");
                   },
                   true,
                   [](const Machine& machine, bool isDone) {
                       if (isDone) {
                           EXPECT_EQ(machine.memory->content("/game/changes/journal"), "new");
                       }
                   });
}

struct MoveRow {
    const char* name;
    Preparation prepare;
    const char* from;
    const char* to;
};

const MoveRow movesAcross[] = {
    {"a file", [](auto& memory) { memory.put("/game/mod", "a"); }, "mod", "other\\mod"},
    {"a file into new folders", [](auto& memory) { memory.put("/game/mod", "a"); }, "MOD",
     "other\\new\\deep\\mod"},
    {"a file off the other disk", [](auto& memory) { memory.put("/game/other/sub/a", "a"); },
     "other\\sub\\a", "units\\a"},
    {"a link", [](auto& memory) { memory.putLink("/game/mod", "/nowhere"); }, "mod", "other\\mod"},
    {"a folder",
     [](auto& memory) {
         memory.put("/game/mod/a", "a");
         memory.put("/game/mod/.hidden/b", "b");
         memory.putLink("/game/mod/link", "/game/totala.exe");
     },
     "mod", "other\\sub\\mod"},
};

/// The files of a tree that lie at or below a path, by what follows it.
Files below(const Files& files, std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    Files found;
    for (const auto& [name, content] : files)
        if (name == path || name.starts_with(path + "/"))
            found[name.substr(path.size())] = content;
    return found;
}

Work moving(const MoveRow& row) {
    return [&row](Disk& disk) {
        EXPECT_TRUE(
            disk.moveEntry(std::string("/game\\") + row.from, std::string("/game\\") + row.to));
    };
}

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return text;
}

TEST(Durability, what_moves_across_disks_is_whole_at_one_place_at_least) {
    for (const auto& row : movesAcross) {
        SCOPED_TRACE(row.name);
        Machine before;
        row.prepare(*before.memory);
        const auto whole = below(before.files(), lowered(row.from));
        ASSERT_FALSE(whole.empty());
        const auto isAtOnePlace = [&](const Machine& machine, bool isDone) {
            const auto there = below(machine.files(), row.to);
            EXPECT_TRUE(there == whole || below(machine.files(), lowered(row.from)) == whole)
                << testing::PrintToString(machine.files());
            EXPECT_TRUE(!isDone || there == whole);
            EXPECT_TRUE(there.empty() || there == whole) << "a torn one bears the name";
        };
        stopEverywhere(row.prepare, moving(row), true, isAtOnePlace);
        stopEverywhere(row.prepare, moving(row), false, isAtOnePlace);
    }
}

TEST(Durability, a_move_that_fails_leaves_everything_as_it_was) {
    for (const auto kind :
         {platform::MemoryDiskKind{}, platform::MemoryDiskKind{.refusesToReplace = false},
          platform::MemoryDiskKind{.refusesToReplace = false, .hasHardLinks = false}})
        for (const auto& row : movesAcross) {
            SCOPED_TRACE(row.name);
            Machine before(kind);
            row.prepare(*before.memory);
            const auto whole = below(before.files(), lowered(row.from));
            failEverywhere(
                row.prepare, moving(row),
                [&](const Machine& machine, const Failure* failure) {
                    if (failure != nullptr) {
                        EXPECT_EQ(machine.files(), before.files());
                        EXPECT_FALSE(machine.memory->has("/game/other/new"))
                            << "a folder on the way";
                        EXPECT_FALSE(machine.memory->has("/game/units")) << "a folder on the way";
                    } else {
                        EXPECT_EQ(below(machine.files(), row.to), whole);
                        EXPECT_EQ(below(machine.files(), lowered(row.from)), Files());
                    }
                },
                kind);
        }
}

TEST(Durability, a_move_on_one_disk_that_fails_leaves_the_file_at_its_source_alone) {
    const Preparation prepare = [](platform::MemoryDisk& memory) { memory.put("/game/a", "a"); };
    const Work work = [](Disk& disk) { EXPECT_TRUE(disk.moveEntry("/game\\a", "/game\\new\\a")); };
    for (const auto kind :
         {platform::MemoryDiskKind{}, platform::MemoryDiskKind{.refusesToReplace = false},
          platform::MemoryDiskKind{.refusesToReplace = false, .hasHardLinks = false}})
        failEverywhere(
            prepare, work,
            [](const Machine& machine, const Failure* failure) {
                EXPECT_EQ(machine.memory->has("/game/a"), failure != nullptr);
                EXPECT_EQ(machine.memory->has("/game/new"), failure == nullptr);
                EXPECT_TRUE(failure != nullptr || machine.memory->content("/game/new/a") == "a");
            },
            kind);
}

TEST(Durability, a_folder_across_disks_keeps_permissions_times_and_hard_links) {
    Machine machine;
    auto& memory = *machine.memory;
    memory.put("/game/mod/locked/a", "a");
    memory.setMode("/game/mod/locked/a", 0640);
    const auto disk = machine.disk();
    std::unique_ptr<RawFolder> folder;
    ASSERT_FALSE(memory.openRoot("/game/mod/locked", folder));
    ASSERT_FALSE(memory.hardLink(*folder, "a", *folder, "b"));
    memory.setMode("/game/mod/locked", 0555);
    const auto file = memory.entry("/game/mod/locked/a");
    const auto inner = memory.entry("/game/mod/locked");
    const auto outer = memory.entry("/game/mod");
    ASSERT_TRUE(disk->moveEntry("/game\\mod", "/game\\other\\mod"));
    EXPECT_FALSE(memory.has("/game/mod"));
    EXPECT_EQ(machine.files(), withoutParts(machine.files()));
    const auto expectLike = [&](const char* path, const RawEntry& model) {
        const auto entry = memory.entry(path);
        EXPECT_EQ(entry.mode, model.mode) << path;
        EXPECT_EQ(entry.modified, model.modified) << path;
    };
    expectLike("/game/other/mod/locked/a", file);
    expectLike("/game/other/mod/locked", inner);
    expectLike("/game/other/mod", outer);
    EXPECT_EQ(memory.entry("/game/other/mod/locked/a").identity,
              memory.entry("/game/other/mod/locked/b").identity);
}

TEST(Durability, names_of_one_file_that_move_one_by_one_stay_names_of_one_file) {
    const auto none = [](platform::MemoryDisk&) {};
    struct Row {
        const char* what;
        std::function<void(platform::MemoryDisk&)> between;
        bool areOne;
    };
    const Row rows[] = {
        {"calm", none, true},
        {"the copy edited", [](auto& memory) { memory.put("/game/other/a", "new"); }, false},
        {"the copy gone", [](auto& memory) { memory.remove("/game/other/a"); }, false},
        {"the rest edited", [](auto& memory) { memory.put("/game/b", "edit"); }, false},
    };
    for (const auto& row : rows) {
        Machine machine;
        auto& memory = *machine.memory;
        memory.put("/game/a", "bytes");
        const auto disk = machine.disk();
        std::unique_ptr<RawFolder> game;
        ASSERT_FALSE(memory.openRoot("/game", game));
        ASSERT_FALSE(memory.hardLink(*game, "a", *game, "b"));
        ASSERT_FALSE(memory.hardLink(*game, "a", *game, "c"));
        EXPECT_TRUE(disk->moveEntry("/game\\a", "/game\\other\\a"));
        row.between(memory);
        const auto rest = memory.content("/game/b");
        EXPECT_TRUE(disk->moveEntry("/game\\b", "/game\\other\\made\\b"));
        EXPECT_EQ(memory.content("/game/other/made/b"), rest) << row.what;
        if (memory.has("/game/other/a")) {
            const bool areOne = memory.entry("/game/other/a").identity ==
                                memory.entry("/game/other/made/b").identity;
            EXPECT_EQ(areOne, row.areOne) << row.what;
        }
        EXPECT_TRUE(disk->moveEntry("/game\\c", "/game\\other\\c"));
        EXPECT_EQ(memory.content("/game/other/c"), "bytes") << row.what;
        EXPECT_EQ(machine.files(), withoutParts(machine.files())) << row.what;
    }
}

TEST(Durability, a_name_taken_while_the_copy_was_made_is_not_taken_over) {
    Machine machine;
    machine.memory->put("/game/mod", "ours");
    const auto disk = machine.disk([&](const test::RawChange& change) {
        if (change.call == "renameNew" && change.name.starts_with(".vexillum-part-"))
            machine.memory->put("/game/other/mod", "theirs");
        return std::error_code();
    });
    EXPECT_FALSE(disk->moveEntry("/game\\mod", "/game\\other\\mod"));
    EXPECT_EQ(machine.files(),
              (Files{{"mod", "ours"}, {"other/mod", "theirs"}, {"totala.exe", "the game"}}));
}

TEST(Durability, in_a_folder_that_takes_no_new_files_an_old_one_stays) {
    Machine machine;
    machine.memory->put("/game/locked/journal", "old");
    machine.memory->setMode("/game/locked", 0555);
    const auto disk = machine.disk();
    EXPECT_THROW(disk->replaceFile("/game\\locked\\journal", "new"), Failure);
    EXPECT_EQ(machine.memory->content("/game/locked/journal"), "old");
}

TEST(Durability, a_batch_comes_whole_or_not_and_leaves_nothing_behind) {
    for (const bool isCommitted : {false, true})
        for (const bool syncsAllContents : {false, true}) {
            Machine machine({.syncsAllContents = syncsAllContents});
            machine.memory->put("/game/old", "old");
            const auto disk = machine.disk();
            {
                WriteBatch batch(*disk);
                for (const auto* name : {"old", "new"})
                    disk->writePieces(std::string("/game\\") + name,
                                      [](const auto& sink) { sink("content"); });
                EXPECT_EQ(machine.memory->content("/game/old"), "old");
                EXPECT_FALSE(machine.memory->has("/game/new"));
                if (isCommitted)
                    batch.commit();
            }
            machine.memory->losePower({0});
            if (isCommitted)
                EXPECT_EQ(
                    machine.files(),
                    (Files{{"new", "content"}, {"old", "content"}, {"totala.exe", "the game"}}));
            else
                EXPECT_EQ(machine.files(), (Files{{"old", "old"}, {"totala.exe", "the game"}}));
        }
}

TEST(Durability, parts_of_dead_processes_go_and_those_of_the_living_stay) {
    Machine machine;
    // No system gives out such a number.
    const std::string dead = ".vexillum-part-2147483647-3";
    const std::string own = ".vexillum-part-" + std::to_string(test::processNumber()) + "-3";
    machine.memory->put("/game/units/" + dead, "part");
    machine.memory->put("/game/units/" + dead + "1/deep", "part");
    machine.memory->put("/game/units/" + own, "part");
    machine.memory->put("/game/units/.vexillum-part-x", "the user's");
    machine.disk()->removeLeftOvers("/game\\units");
    EXPECT_EQ(machine.files(), (Files{{"totala.exe", "the game"},
                                      {"units/.vexillum-part-x", "the user's"},
                                      {"units/" + own, "part"}}));
}

/// Every lawful rest of a swap that was not synced; both files have one name at any rate.
TEST(Durability, the_disk_in_memory_loses_changes_of_names_whole) {
    for (const bool inOrder : {true, false}) {
        std::set<std::string> seen;
        for (unsigned arrived = 0; arrived < 16; ++arrived) {
            Machine machine;
            machine.memory->put("/game/a", "A");
            machine.memory->put("/game/sub/b", "B");
            const auto disk = machine.disk();
            EXPECT_TRUE(disk->moveEntry("/game\\a", "/game\\made\\a"));
            EXPECT_TRUE(disk->moveEntry("/game\\sub\\b", "/game\\a"));
            disk->writeFile("/game\\made\\new", "not synced");
            const auto memory = machine.memory->copy();
            unsigned asked = 0;
            memory->cutPower({[&] { return (arrived >> asked++ & 1U) != 0; }, inOrder,
                              [](const auto& synced, const auto& /*written*/) { return synced; }});
            std::string rest;
            for (const auto& [path, content] : memory->files("/game"))
                rest += path == "totala.exe" ? "" : path + "=" + content + " ";
            seen.insert(rest);
            EXPECT_EQ(machine.files().size(), 4U) << "the copy is a disk of its own";
        }
        EXPECT_THAT(seen, testing::IsSupersetOf({"a=A sub/b=B ", "made/a=A sub/b=B ",
                                                 "a=B made/a=A ", "a=B made/a=A made/new= "}));
    }
}

TEST(Durability, what_the_disk_in_memory_has_synced_stays) {
    Machine machine;
    const auto disk = machine.disk();
    disk->replaceFile("/game\\journal", "new");
    disk->writeFile("/game\\other file", "new");
    machine.memory->cutPower(
        {[] { return false; }, true, [](const auto& synced, const auto&) { return synced; }});
    EXPECT_EQ(machine.files(), (Files{{"journal", "new"}, {"totala.exe", "the game"}}));
}

} // namespace
} // namespace platform
