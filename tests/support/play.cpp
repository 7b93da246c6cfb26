// Sessions of tests.
#include "support/play.h"

#include <sstream>

#include "commandline/commands.h"
#include "windows/choose_directory.h"
#include "windows/frmMain.h"

namespace test {

namespace {

/// As the program's main function does. False where the user wants none.
bool findDirectory(installation::Installation& installation, windows::Machine& machine) {
    std::vector<std::string> words;
    std::istringstream line(machine.commandLine);
    for (std::string word; line >> word;)
        words.push_back(word);
    const auto wanted = commandline::windowsLine(words).value();
    const auto folder = windows::chooseDirectory(machine.toolkit, installation, wanted.directory);
    machine.programFolder = folder.value_or("");
    machine.commandLine = wanted.rest;
    machine.installation = &installation;
    return folder.has_value();
}

} // namespace

std::unique_ptr<windows::Toolkit> withoutScreen(headless::Script& script,
                                                headless::Transcript transcript) {
    return std::make_unique<headless::SessionToolkit>(script, std::move(transcript));
}

Installed::Installed(const Game& game)
    : disk_(platform::makeDisk()),
      installation(
          *disk_,
          [&] {
              const auto home = platform::absoluteFolder(game.folder() + "/home");
              platform::UserPlaces places;
              places.current = places.home = home;
              places.settings = platform::absoluteFolder(home + "/.config/vexillum");
              return places;
          }(),
          platform::absoluteFolder(game.folder() + "/bin"), "vexillum", VEXILLUM_DATA) {}

Session play(const Game& game, const std::string& script, const Play& how) {
    Session session;
    const headless::Transcript transcript = [&session](const Event& event) {
        session.events.push_back(event);
    };
    std::istringstream lines(script);
    headless::Script actions(lines);
    const auto toolkit = how.makeToolkit(actions, transcript);
    const auto own = platform::makeDisk();
    auto& disk = how.disk != nullptr ? *how.disk : *own;
    headless::RecordedPrograms programs(disk, transcript);
    programs.looksWhileRunning = how.looksWhileGameRuns;
    programs.looksWhileWatched = how.looksWhilePlaying;
    programs.failure = how.startFailure;
    Installed installed(game);
    try {
        windows::Machine machine{disk, *toolkit, programs, game.folder(), "", how.commandLine};
        if (how.isInstalled && !findDirectory(installed.installation, machine)) {
            session.endedItself = true;
            return session;
        }
        windows::frmMain main(machine);
        main.run();
        session.endedItself = true;
    } catch (const headless::ScriptEnd&) {
        // The machine was switched off.
    } catch (const headless::BadLine& line) {
        session.badLine = line.what();
    } catch (const headless::TooManyBoxes&) {
        session.boxesWithoutEnd = true;
    }
    return session;
}

std::vector<std::string> fieldOf(const Session& session, std::string_view event,
                                 const std::string& field) {
    std::vector<std::string> values;
    for (const auto& each : session.events)
        if (each["event"] == event)
            values.push_back(each[field].get<std::string>());
    return values;
}

} // namespace test
