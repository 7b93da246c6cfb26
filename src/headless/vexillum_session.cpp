// vexillum-session GAMEDIR [--command-line TEXT] < script > transcript
// Plays one whole session of the program without a screen.
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "headless/session.h"
#include "windows/frmMain.h"

namespace {

constexpr int badLine = 2;
constexpr int boxesWithoutEnd = 3;

int play(const std::string& gameDirectory, const std::string& commandLine) {
    bool ended = false;
    const headless::Transcript transcript = [&ended](const headless::Event& event) {
        if (!ended)
            std::cout << event.dump() << '\n';
        ended = ended || event["event"] == "end";
    };
    headless::Script script(std::cin);
    headless::SessionToolkit toolkit(script, transcript);
    const auto disk = platform::makeDisk();
    headless::RecordedPrograms programs(*disk, transcript);
    try {
        windows::frmMain main(
            {*disk, toolkit, programs, platform::absoluteFolder(gameDirectory), "", commandLine});
        main.run();
        transcript({{"event", "end"}, {"how", "ended"}});
    } catch (const headless::ScriptEnd&) {
        transcript({{"event", "end"}, {"how", "script"}});
    } catch (const headless::BadLine& line) {
        std::cerr << line.what() << '\n';
        return badLine;
    } catch (const headless::TooManyBoxes&) {
        std::cerr << "the program shows box after box\n";
        return boxesWithoutEnd;
    }
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const bool hasCommandLine = arguments.size() == 3 && arguments[1] == "--command-line";
    if (arguments.size() != 1 && !hasCommandLine) {
        std::cerr
            << "usage: vexillum-session GAMEDIR [--command-line TEXT] < script > transcript\n";
        return badLine;
    }
    std::ios::sync_with_stdio(false);
    return play(arguments[0], hasCommandLine ? arguments[2] : "");
}
