// The windows are the real ones; boxes are answered by their kind, for a fault brings new ones.
#include "crash/session.h"

#include <algorithm>
#include <cstdio>
#include <random>
#include <sstream>

#include "commandline/commands.h"
#include "headless/session.h"
#include "platform/text.h"
#include "support/faulty_disk.h"
#include "support/system.h"
#include "windows/frmMain.h"
#include "windows/lists.h"

namespace crash {
namespace {

constexpr std::size_t mostBoxes = 500;

class Toolkit final : public headless::SessionToolkit {
  public:
    Toolkit(headless::Script& script, headless::Transcript transcript, Session& session,
            Answer answer)
        : SessionToolkit(script, std::move(transcript)), session_(session), answer_(answer) {}

    windows::MessageAnswer showMessage(const windows::MessageBox& box) override {
        session_.boxes.push_back(test::inPosixWords(box.text + "\n" + box.detail));
        if (session_.boxes.size() > mostBoxes)
            throw headless::TooManyBoxes();
        const bool isClash = box.text.find("Do you want to use") != std::string::npos;
        if (isClash && answer_ == Answer::byDefault)
            return {box.defaultButton};
        return {isClash && answer_ == Answer::no ? box.buttons.size() - 1 : 0};
    }
    /// What a wizard's list says in the end.
    void hide(windows::Window& window) override {
        for (const auto* control : window.controls())
            if (const auto* list = dynamic_cast<const windows::ListBox*>(control))
                for (const auto& item : list->items())
                    session_.lines.push_back(test::inPosixWords(item.text + ": " + item.note));
        SessionToolkit::hide(window);
    }
    void logged(const std::string& line) override {
        session_.lines.push_back(test::inPosixWords(line));
    }

  private:
    Session& session_;
    Answer answer_;
};

void tell(const Session& session, const std::string& script) {
    std::printf("session of %d changes: %s %s\n", session.changes,
                platform::inOneLine(script).c_str(), session.badLine.c_str());
    for (const auto& line : session.lines)
        std::printf("    log %s\n", line.c_str());
    for (const auto& box : session.boxes)
        std::printf("    box %s\n", platform::inOneLine(box).c_str());
}

/// A script that is one command line.
constexpr std::string_view commandWord = "run ";

std::vector<std::string> splitAt(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, separator);)
        parts.push_back(part);
    return parts;
}

void runCommand(const std::string& commandLine, platform::Disk& disk, platform::Programs& programs,
                Session& session) {
    std::ostringstream output;
    std::ostringstream errors;
    commandline::run({disk, programs, gameFolder, output, errors}, splitAt(commandLine, ' '));
    session.lines = splitAt(test::inPosixWords(output.str()), '\n');
    session.boxes = splitAt(test::inPosixWords(errors.str()), '\n');
}

} // namespace

bool isTelling = false;

Session play(const Memory& memory, const std::string& script, Answer answer, const Fault& fault) {
    Session session;
    std::string name;
    const auto disk = test::faultyDisk(memory, [&](const test::RawChange& change) {
        session.changes = change.number;
        if (fault.look)
            fault.look();
        if (change.number == fault.number) {
            session.wasHit = true;
            if (isTelling)
                std::printf("at %s %s:\n", std::string(change.call).c_str(), change.name.c_str());
            name = change.name;
            if (!fault.error)
                throw test::PowerCut();
            return fault.error;
        }
        const bool goesOn =
            session.wasHit &&
            (fault.reach == Fault::Reach::onwards ||
             (fault.reach == Fault::Reach::sameName && !name.empty() && change.name == name));
        return goesOn ? fault.error : std::error_code();
    });
    const headless::Transcript transcript = [&](const headless::Event& event) {
        if (event["event"] == "start" &&
            event["command"].get<std::string>().find("totala") != std::string::npos)
            session.startsGame = true;
    };
    std::istringstream lines(script);
    headless::Script actions(lines);
    Toolkit toolkit(actions, transcript, session, answer);
    headless::RecordedPrograms programs(*disk, transcript);
    try {
        if (script.starts_with(commandWord))
            runCommand(script.substr(commandWord.size()), *disk, programs, session);
        else
            windows::frmMain({*disk, toolkit, programs, gameFolder, "Vexillum.exe", ""}).run();
    } catch (const headless::ScriptEnd&) {
        // The machine went off.
    } catch (const test::PowerCut&) {
        // So it did.
    } catch (const headless::BadLine& line) {
        session.badLine = line.what();
    } catch (const headless::TooManyBoxes&) {
        session.badLine = "boxes without end";
    }
    if (isTelling)
        tell(session, script);
    return session;
}

void losePower(platform::MemoryDisk& memory, bool inOrder, std::uint32_t seed) {
    std::mt19937 random(seed);
    const auto upTo = [&random](std::size_t most) { return random() % (most + 1); };
    // Little, half or most of it has arrived.
    const auto share = upTo(4);
    memory.cutPower({[&] { return upTo(3) < share; }, inOrder,
                     [&](const std::string& synced, const std::string& written) {
                         auto left = written;
                         switch (upTo(3)) {
                         case 0:
                             return synced;
                         case 1:
                             left.resize(upTo(written.size()));
                             break;
                         case 2:
                             std::fill_n(left.rbegin(), upTo(left.size()), '\0');
                             break;
                         default:
                             break;
                         }
                         return left;
                     }});
}

} // namespace crash
