// What only Windows has: names for devices, sharing, locks against writing, drives and shares.
#include <chrono>
#include <functional>
#include <future>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <windows.h>

#include "platform/disk.h"
#include "platform/failure.h"
#include "platform/instance_lock.h"
#include "platform/programs.h"
#include "platform/relative_path.h"
#include "support/game.h"
#include "support/system.h"
#include "system_path.h"
#include "windows/held_names.h"
#include "windows/paths.h"
#include "windows/system_text.h"
#include "windows/windows_disk.h"

namespace platform {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Work = std::function<void()>;

class WindowsDiskTest : public testing::Test {
  protected:
    WindowsDiskTest() { disk->setGameDirectory(game.folder()); }

    std::string in(std::string_view path) const { return game.folder() + "\\" + std::string(path); }

    test::Game game;
    std::unique_ptr<Disk> disk = makeDisk();
};

/// Another program that has a file open and lets nobody else have it.
class Holder {
  public:
    Holder(const std::filesystem::path& file, const char* seconds) {
        auto line = L'"' + test::sleeper().wstring() + L"\" " +
                    std::filesystem::path(seconds).wstring() + L" \"" + file.wstring() + L'"';
        HANDLE read = nullptr;
        HANDLE write = nullptr;
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        EXPECT_NE(CreatePipe(&read, &write, &inherited, 0), 0);
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = write;
        EXPECT_NE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                 &startup, &process_),
                  0);
        CloseHandle(write);
        char said[4] = {};
        DWORD count = 0;
        EXPECT_NE(ReadFile(read, said, sizeof said, &count, nullptr), 0);
        EXPECT_EQ(std::string(said, count), "held");
        CloseHandle(read);
    }
    ~Holder() {
        WaitForSingleObject(process_.hProcess, INFINITE);
        CloseHandle(process_.hThread);
        CloseHandle(process_.hProcess);
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

  private:
    PROCESS_INFORMATION process_{};
};

TEST_F(WindowsDiskTest, names_that_windows_cannot_hold_are_refused_with_a_reason) {
    const struct {
        std::string name;
        const char* reason;
    } rows[] = {
        {"NUL", "Windows keeps this name for a device"},
        {"nul.txt", "Windows keeps this name for a device"},
        {"Com1 .ufo", "Windows keeps this name for a device"},
        {"lpt\xC2\xB2", "Windows keeps this name for a device"},
        {"CONOUT$", "Windows keeps this name for a device"},
        {"dot.", "A name on Windows cannot end in a dot or a blank"},
        {"blank ", "A name on Windows cannot end in a dot or a blank"},
        {"what?", "A name on Windows cannot contain"},
        {"a|b", "A name on Windows cannot contain"},
        {"bell\a", "A name on Windows cannot contain"},
        {"\xFF.ufo", "The name is no text that Windows could hold"},
    };
    game.put("a", "a");
    for (const auto& row : rows) {
        EXPECT_THAT(windows::whyRefused(row.name).message(), testing::StartsWith(row.reason));
        const Work works[] = {
            [&] { disk->writeFile(in(row.name), "x"); },
            [&] { disk->replaceFile(in(row.name), "x"); },
            [&] { disk->copyFile(in("a"), in(row.name)); },
            [&] { disk->moveEntry(in("a"), in(row.name)); },
            [&] { disk->moveEntry(in("a"), in(row.name + "\\a")); },
            [&] { disk->renameEntry(in("a"), row.name); },
            [&] { disk->makeFolder(in(row.name)); },
        };
        for (const auto& work : works)
            try {
                work();
                ADD_FAILURE() << row.name;
            } catch (const Failure& failure) {
                EXPECT_THAT(failure.reason(), testing::StartsWith(row.reason)) << row.name;
            }
    }
    EXPECT_THAT(disk->fileNames(in("")), testing::ElementsAre("a", "totala.exe"));
    for (const auto* name : {"console", "com", "com10", "nulls", "a.b", " x", ".x", "\xC3\xBC"})
        EXPECT_FALSE(windows::whyRefused(name)) << name;
    EXPECT_FALSE(RelativePath::parse("a:b"));
    EXPECT_FALSE(isPlainName("stream:name"));
}

TEST(WindowsText, every_name_comes_back) {
    const std::wstring names[] = {
        L"plain",           L"\u00FCber \u65E5\u672C", L"\xD83D\xDE00 pair",
        L"lone \xD83D end", L"\xDE00\xD83D swapped",   L""};
    for (const auto& name : names)
        EXPECT_EQ(windows::toWide(windows::narrow(name)), name);
    for (const auto* bytes : {"\xFF", "\xC3", "a\xED\x20\x80", "\xED\xA0"})
        EXPECT_FALSE(windows::toWide(bytes)) << bytes;
}

TEST(WindowsPaths, know_drives_shares_and_the_raw_form) {
    const struct {
        const char* path;
        const char* root;
        const wchar_t* raw;
    } rows[] = {
        {"C:\\games", "C:\\", LR"(\\?\C:\games)"},
        {"c:/games", "c:/", LR"(\\?\c:\games)"},
        {"C:", "", LR"(\\?\C:\)"},
        {"C:games", "", LR"(\\?\C:games)"},
        {"\\\\server\\share\\ta", "\\\\server\\share\\", LR"(\\?\UNC\server\share\ta)"},
        {"//server/share", "//server/share", LR"(\\?\UNC\server\share)"},
        {"\\\\server", "", LR"(\\?\UNC\server)"},
        {"relative\\x", "", LR"(\\?\relative\x)"},
        {"", "", L""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(rootOf(row.path), row.root) << row.path;
        EXPECT_EQ(windows::rawForm(row.path), row.raw) << row.path;
    }
    EXPECT_EQ(rootOf("\\x"), "\\");
    EXPECT_EQ(windows::plainForm(LR"(\\?\C:\games)"), L"C:\\games");
    EXPECT_EQ(windows::plainForm(LR"(\\?\UNC\server\share)"), LR"(\\server\share)");
    EXPECT_EQ(absoluteFolder("C:\\games\\ta\\..\\"), "C:\\games");
    EXPECT_EQ(absoluteFolder("C:/"), "C:");
    EXPECT_THAT(programFolder(), testing::Not(testing::EndsWith("\\")));
}

TEST(WindowsLinks, are_told_from_files_that_are_only_fetched_when_asked_for) {
    EXPECT_TRUE(windows::leadsElsewhere(IO_REPARSE_TAG_SYMLINK));
    EXPECT_TRUE(windows::leadsElsewhere(IO_REPARSE_TAG_MOUNT_POINT));
    constexpr DWORD cloud = 0x9000001A;
    EXPECT_FALSE(windows::leadsElsewhere(cloud));
    EXPECT_FALSE(windows::leadsElsewhere(IO_REPARSE_TAG_DEDUP));
}

TEST_F(WindowsDiskTest, paths_may_be_longer_than_260_characters) {
    std::string deep = "deep";
    for (int i = 0; i < 12; ++i)
        deep += "\\" + std::string(40, static_cast<char>('a' + i));
    game.put("a", "a");
    EXPECT_TRUE(disk->moveEntry(in("a"), in(deep + "\\a")));
    EXPECT_EQ(disk->readFile(in(deep + "\\A")), "a");
    disk->copyFile(in(deep + "\\a"), in(deep + "\\b"));
    EXPECT_TRUE(disk->renameEntry(in(deep + "\\b"), "B"));
    EXPECT_THAT(disk->fileNames(in(deep)), testing::ElementsAre("a", "B"));
    EXPECT_TRUE(disk->moveEntry(in("deep"), in("other")));
    disk->removeTree(in("other"));
    EXPECT_FALSE(game.has("other"));
}

TEST_F(WindowsDiskTest, a_file_that_is_held_for_a_moment_is_waited_for) {
    const struct {
        const char* name;
        Work work;
    } rows[] = {
        {"move", [&] { EXPECT_TRUE(disk->moveEntry(in("held"), in("moved"))); }},
        {"replace", [&] { disk->replaceFile(in("held"), "new"); }},
        {"remove", [&] { disk->removeFile(in("held")); }},
        {"read", [&] { EXPECT_EQ(disk->readFile(in("held")), "x"); }},
        {"write", [&] { disk->writeFile(in("held"), "new"); }},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        game.put("held", "x");
        const Holder holder(game.at("held"), "0.3");
        EXPECT_NO_THROW(row.work());
    }
}

TEST_F(WindowsDiskTest, a_file_that_is_held_for_long_is_told_of_with_the_reason) {
    game.put("held", "x");
    const Holder holder(game.at("held"), "3.5");
    const auto start = Clock::now();
    try {
        disk->moveEntry(in("held"), in("moved"));
        ADD_FAILURE();
    } catch (const Failure& failure) {
        EXPECT_TRUE(failure.is(std::errc::device_or_resource_busy));
        EXPECT_EQ(failure.reason(), windows::messageOf(ERROR_SHARING_VIOLATION));
    }
    EXPECT_GT(Clock::now() - start, 1900ms);
    EXPECT_LT(Clock::now() - start, 3s);
    EXPECT_EQ(disk->kindOf(in("held")), EntryKind::file);
    EXPECT_EQ(disk->kindOf(in("moved")), EntryKind::none);
}

TEST_F(WindowsDiskTest, files_locked_against_writing_are_moved_replaced_and_removed) {
    game.put("cd/a", "a");
    game.put("b", "b");
    test::setReadOnly(game.at("cd/a"), true);
    test::setReadOnly(game.at("b"), true);
    EXPECT_TRUE(disk->moveEntry(in("cd\\a"), in("a")));
    EXPECT_TRUE(test::isReadOnly(game.at("a")));
    disk->copyFile(in("a"), in("b"));
    EXPECT_EQ(game.content("b"), "a");
    EXPECT_TRUE(test::isReadOnly(game.at("b"))) << "a copy is locked as its source is";
    disk->replaceFile(in("b"), "new");
    EXPECT_EQ(game.content("b"), "new");
    disk->removeFile(in("b"));
    EXPECT_TRUE(disk->moveEntry(in("a"), in("cd\\a")));
    disk->removeTree(in("cd"));
    EXPECT_FALSE(game.has("cd"));
}

TEST_F(WindowsDiskTest, hidden_files_stay_hidden_when_they_are_copied) {
    game.put("secret", "x");
    SetFileAttributesW(game.at("secret").c_str(), FILE_ATTRIBUTE_HIDDEN);
    if ((GetFileAttributesW(game.at("secret").c_str()) & FILE_ATTRIBUTE_HIDDEN) == 0)
        GTEST_SKIP() << "the disk keeps no such mark";
    disk->copyFile(in("secret"), in("copy"));
    EXPECT_NE(GetFileAttributesW(game.at("copy").c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
}

TEST_F(WindowsDiskTest, a_folder_is_locked_whatever_name_leads_to_it) {
    const auto lock = lockFolder(game.folder(), platform::Holder::isLeftAlone).lock;
    ASSERT_TRUE(lock);
    // A thread that holds a lock would get it once more.
    const auto isFree = [](const std::string& folder) {
        return std::async(std::launch::async,
                          [folder] {
                              return lockFolder(folder, platform::Holder::isLeftAlone).lock !=
                                     nullptr;
                          })
            .get();
    };
    EXPECT_FALSE(isFree(test::shown(game.folder() + "/Vexillum/..").replace(0, 1, "z")));
    EXPECT_TRUE(isFree(game.folder() + "\\Vexillum"));
}

TEST_F(WindowsDiskTest, what_cannot_be_started_says_why_in_the_systems_words) {
    const auto programs = makePrograms(*disk);
    try {
        programs->start({Command::Kind::program, in("none.exe"), "", StartWindow::normal});
        ADD_FAILURE();
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.reason(), windows::messageOf(ERROR_FILE_NOT_FOUND));
    }
}

} // namespace
} // namespace platform
