// One session of the whole program on the disk in memory, disturbed at one of its changes.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include "platform/memory_disk.h"

namespace crash {

using Memory = std::shared_ptr<platform::MemoryDisk>;
using Files = std::map<std::string, std::string>; ///< path with "/" below a folder, content

/// What the user says to questions about clashes; to all others it is Yes.
enum class Answer { yes, no, byDefault };

/// Which calls of a session go wrong, and how.
struct Fault {
    enum class Reach { once, onwards, sameName };

    int number = 0;        ///< of the change, from 1; 0 for none
    std::error_code error; ///< none: the program stops dead there
    Reach reach = Reach::once;
    /// Called before each change, if there is one: what is on the disk is what a stop would leave.
    std::function<void()> look = nullptr;
};

struct Session {
    std::vector<std::string> boxes; ///< text and reason
    std::vector<std::string> lines; ///< of the log
    int changes = 0;
    bool wasHit = false; ///< the fault's change was reached
    bool startsGame = false;
    std::string badLine; ///< of the script: it could not be carried out
};

/// The game directory of every session.
constexpr auto gameFolder = "/game";

/// Whether each session prints what its user sees.
extern bool isTelling;

/// Runs the program until the script runs out, which is the machine going off, or it ends. A script
/// "run ..." is a command line, words parted by one blank each: then `boxes` holds the lines of its
/// errors and `lines` those of its output, a power cut's excepted.
Session play(const Memory& memory, const std::string& script, Answer answer = Answer::yes,
             const Fault& fault = {});

/// The power goes. What was synced stays, and of the rest a lawful part by chance: a file is whole,
/// cut anywhere, partly zeroes, or as it was.
void losePower(platform::MemoryDisk& memory, bool inOrder, std::uint32_t seed);

} // namespace crash
