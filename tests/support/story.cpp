// The lines of a story:
//   #: file PATH = TEXT      a file of the game directory; \n in TEXT is a line end (CR LF), \t a
//   tab
//   #: folder PATH, #: remove PATH
//   #: pack ARCHIVE ENTRY [*N] = TEXT    adds an entry, TEXT N times, to an archive
//   #: spoil PATH            the last byte of a file is another
//   #: start [COMMAND LINE]  a session with the script lines up to the next "#:" line
//   #: run COMMAND LINE      the program without a window: out, error, start and exit are its
//   events
//   #: cut N PATH            with the session before it: the power goes before the N-th change of
//   PATH
//   #: fail PATH             with the session before it: every change of PATH fails
//   #: running N             with the session before it: N looks find the game running
//   #: playing N             the same for the game that the program waits for
//   #: no programs           with the session before it: no program can be started
//   #> EVENT                 what the user sees; "..." stands for any text
//   #= CONTROL[.FIELD] TEXT  the state at this place of the script
//   #: has PATH [= TEXT], #: no PATH
//   #: same PATH PATH        two files are equal
//   #: installed             the program lies in the folder "bin" from here on, beside a "home"
//   #: where wrappers run    elsewhere the story is passed over
//   #: where case counts     elsewhere the story is passed over
//   #: plain                 every file is as it was before the first session
#include "support/story.h"

#include <algorithm>
#include <cctype>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <thread>
#include <utility>

#include <gtest/gtest.h>

#include "packing/archive_writer.h"
#include "platform/failure.h"
#include "platform/programs.h"
#include "platform/text.h"
#include "support/faulty_disk.h"
#include "support/play.h"
#include "support/play_command.h"
#include "support/story_lines.h"
#include "support/system.h"

namespace test {
namespace {

using platform::replaceAll;

struct Expectation {
    std::string text;
    int look = 0; ///< the number of the look at the window's state, 0 for an event
    std::string where;
};

class Story {
  public:
    Story(std::string file, MakeToolkit makeToolkit)
        : file_(std::move(file)), makeToolkit_(std::move(makeToolkit)) {}

    void play() {
        std::ifstream lines(file_);
        for (std::string line; std::getline(lines, line);) {
            ++lineNumber_;
            if (line == "#: where case counts" && !tellsCaseApart)
                GTEST_SKIP() << "no folder here holds names that differ in case alone";
            if (line == "#: where wrappers run" && !platform::takesWrappers())
                GTEST_SKIP() << "the system has no programs that run others";
            if (line.starts_with("#: ") && !line.starts_with("#: where "))
                direct(line.substr(3));
            else if (line.starts_with("#> "))
                expectations_.push_back({expectedHere(line.substr(3)), 0, where()});
            else if (line.starts_with("#= "))
                expectState(line.substr(3));
            else
                addScript(line);
        }
        runSession();
        EXPECT_GT(sessions_, 0) << file_ << " plays no session";
    }

  private:
    std::string where() const { return file_ + ":" + std::to_string(lineNumber_); }

    std::string diskPath(const std::string& path) const {
        return game_.folder() + "\\" + replaceAll(path, "/", "\\");
    }

    void addScript(const std::string& line) {
        script_ += scriptHere(line, game_.folder()) + "\n";
        if (!line.empty() && line[0] != '#')
            lastWasState_ = false;
    }

    void expectState(const std::string& text) {
        if (!std::exchange(lastWasState_, true)) {
            script_ += "dump\n";
            ++looks_;
        }
        expectations_.push_back({expectedHere(text), looks_, where()});
    }

    void direct(const std::string& line) {
        const auto blank = line.find(' ');
        const auto word = line.substr(0, blank);
        auto rest = blank == std::string::npos ? "" : line.substr(blank + 1);
        if (word == "cut") {
            cutAt_ = std::stoi(rest);
            cutPath_ = diskPath(rest.substr(rest.find(' ') + 1));
            return;
        }
        if (word == "running") {
            running_ = std::stoi(rest);
            return;
        }
        if (word == "playing") {
            playing_ = std::stoi(rest);
            return;
        }
        if (line == "no programs") {
            startFailure_ = "The system says no";
            return;
        }
        if (word == "fail") {
            failing_.insert(platform::foldCase(diskPath(rest)));
            return;
        }
        runSession();
        std::string text;
        if (rest.ends_with(" ="))
            rest += " ";
        const auto equals = rest.find(" = ");
        const bool hasText = equals != std::string::npos;
        if (hasText) {
            text = replaceAll(replaceAll(rest.substr(equals + 3), "\\n", "\r\n"), "\\t", "\t");
            rest.resize(equals);
        }
        // The clock for files may stand still for some milliseconds.
        if (sessions_ > 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        if (line == "installed")
            isInstalled_ = true;
        else if (word == "file")
            game_.put(rest, text);
        else if (word == "folder")
            game_.makeFolder(rest);
        else if (word == "pack")
            pack(rest, text);
        else if (word == "spoil")
            spoil(rest);
        else if (word == "same")
            checkSame(rest);
        else if (word == "remove")
            game_.remove(rest);
        else if (word == "start" || word == "run")
            beginSession(word == "run", replaceAll(rest, "GAME", game_.folder()));
        else if (word == "has")
            checkHas(rest, hasText ? std::optional(text) : std::nullopt);
        else if (word == "no")
            EXPECT_FALSE(game_.has(rest)) << where() << ": " << rest << " is there";
        else if (word == "plain")
            EXPECT_EQ(differences(before_, game_.files()), "") << where();
        else
            ADD_FAILURE() << where() << ": no such line in a story";
    }

    void pack(const std::string& names, const std::string& text) {
        const auto blank = names.find(' ');
        const auto archive = names.substr(0, blank);
        auto entry = names.substr(blank + 1);
        std::string content = text;
        if (const auto star = entry.find(" *"); star != std::string::npos) {
            for (int more = std::stoi(entry.substr(star + 2)); more > 1; --more)
                content += text;
            entry.resize(star);
        }
        packed_[archive].emplace_back(entry, content);
        game_.put(archive,
                  packing::packArchive(packed_[archive], {packing::Packing::lz77, true, 0x7D}));
    }

    void spoil(const std::string& path) {
        auto bytes = game_.content(path).value();
        bytes.back() = static_cast<char>(bytes.back() ^ 1);
        game_.put(path, bytes);
    }

    void checkSame(const std::string& names) {
        const auto blank = names.find(' ');
        EXPECT_TRUE(game_.content(names.substr(0, blank))) << where();
        EXPECT_EQ(game_.content(names.substr(0, blank)), game_.content(names.substr(blank + 1)))
            << where();
    }

    void checkHas(const std::string& path, const std::optional<std::string>& text) {
        EXPECT_TRUE(game_.has(path)) << where() << ": " << path << " is not there";
        if (text) {
            EXPECT_EQ(game_.content(path), text) << where() << ": " << path;
        }
    }

    void beginSession(bool isCommand, const std::string& commandLine) {
        if (sessions_++ == 0)
            before_ = game_.files();
        isCommand_ = isCommand;
        commandLine_ = commandLine;
        started_ = true;
        script_.clear();
        expectations_.clear();
        cutAt_ = 0;
        cutPath_.clear();
        failing_.clear();
        running_ = 0;
        playing_ = 0;
        startFailure_.clear();
        lastWasState_ = false;
    }

    void runSession() {
        if (!std::exchange(started_, false))
            return;
        const auto disk = platform::makeDisk();
        int changes = 0;
        FaultyDisk faulty(*disk, [&](int /*number*/, const std::string& path) {
            if (platform::equalIgnoringCase(path, cutPath_) && ++changes == cutAt_)
                throw PowerCut();
            if (failing_.contains(platform::foldCase(path)))
                throw platform::Failure("change", platform::shownPath(path), "The disk says no");
        });
        Session session;
        try {
            const Play how{commandLine_, &faulty,       makeToolkit_, running_,
                           playing_,     startFailure_, isInstalled_};
            session = isCommand_ ? playCommand(game_, commandLine_, how)
                                 : test::play(game_, script_, how);
        } catch (const PowerCut&) {
            return;
        }
        EXPECT_EQ(cutAt_, 0) << where() << ": the session ended before the power went";
        EXPECT_FALSE(session.badLine) << where() << ": cannot be carried out: " << *session.badLine;
        EXPECT_FALSE(session.boxesWithoutEnd) << where();
        if (session.endedItself)
            session.events.push_back({{"event", "end"}});
        compare(session.events);
    }

    void compare(const std::vector<Event>& events) {
        const Event* event = nullptr;
        std::size_t next = 0;
        int look = 0;
        for (const auto& expected : expectations_) {
            const bool isState = expected.look > 0;
            if (!isState || expected.look != look)
                event = skipTo(events, next, isState ? "state" : expected.text, expected);
            if (event == nullptr)
                return;
            look = expected.look;
            if (isState)
                checkState(*event, expected);
        }
        for (; next < events.size(); ++next)
            EXPECT_TRUE(mayGoUntold(events[next]))
                << where() << ": untold: " << lineOf(events[next], game_.folder());
    }

    const Event* skipTo(const std::vector<Event>& events, std::size_t& next,
                        const std::string& pattern, const Expectation& expected) {
        std::string seen;
        while (next < events.size()) {
            const auto& event = events[next++];
            const auto line = event["event"] == "state" ? "state" : lineOf(event, game_.folder());
            if (event["event"] == "end" ? pattern == "end" : matches(pattern, line))
                return &event;
            seen += "\n    " + line;
            if (!mayGoUntold(event))
                break;
        }
        ADD_FAILURE() << expected.where << ": not seen: " << pattern << "\n  but:" << seen;
        return nullptr;
    }

    void checkState(const Event& state, const Expectation& expected) const {
        const auto blank = expected.text.find(' ');
        const auto name = expected.text.substr(0, blank);
        const auto text =
            blank == std::string::npos ? std::string() : expected.text.substr(blank + 1);
        const auto dot = name.find('.');
        const auto field = dot == std::string::npos ? "text" : name.substr(dot + 1);
        const auto& controls = state["controls"];
        const auto control = name.substr(0, dot);
        ASSERT_TRUE(controls.contains(control)) << expected.where << ": no " << control;
        const auto is =
            inPosixWords(replaceAll(stateText(controls[control], field), game_.folder(), "GAME"));
        EXPECT_TRUE(matches(text, is)) << expected.where << ": " << name << " is " << is;
    }

    std::string file_;
    MakeToolkit makeToolkit_;
    int lineNumber_ = 0;
    Game game_;
    Tree before_;
    int sessions_ = 0;
    bool started_ = false;
    bool isCommand_ = false;
    bool isInstalled_ = false;
    std::string commandLine_;
    std::string script_;
    std::vector<Expectation> expectations_;
    int cutAt_ = 0;
    std::string cutPath_;
    std::set<std::string> failing_;
    int running_ = 0;
    int playing_ = 0;
    std::string startFailure_;
    bool lastWasState_ = false;
    int looks_ = 0;
    std::map<std::string, packing::PackedFiles> packed_;
};

} // namespace

std::vector<std::string> stories() {
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(VEXILLUM_SESSIONS))
        if (entry.path().extension() == ".session")
            files.push_back(entry.path().string());
    std::sort(files.begin(), files.end());
    return files;
}

std::string storyName(const testing::TestParamInfo<std::string>& file) {
    auto name = std::filesystem::path(file.param).stem().string();
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c); }, '_');
    return name;
}

void playStory(const std::string& file, const MakeToolkit& makeToolkit) {
    Story(file, makeToolkit).play();
}

} // namespace test
