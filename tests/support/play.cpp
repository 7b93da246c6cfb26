// Sessions of tests.
#include "support/play.h"

#include <sstream>

#include "windows/frmMain.h"

namespace test {

std::unique_ptr<windows::Toolkit> withoutScreen(headless::Script& script,
                                                headless::Transcript transcript) {
    return std::make_unique<headless::SessionToolkit>(script, std::move(transcript));
}

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
    windows::frmMain main({disk, *toolkit, programs, game.folder(), "", how.commandLine});
    try {
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
