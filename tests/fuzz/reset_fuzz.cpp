// Any bytes as the files that tell of the last launch, all at once: a reset loses no file, and
// neither does a second one.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <set>
#include <string>

#include "cycle/last_launch.h"
#include "cycle/reset.h"
#include "formats/state.h"
#include "platform/memory_disk.h"

namespace {

class Defaults final : public platform::Questions {
  public:
    std::size_t ask(const platform::Question& question, platform::MessageRow* /*row*/) override {
        return question.defaultButton;
    }
};

constexpr const char* userFiles[] = {"totala.exe",
                                     "a.ufo",
                                     "b.hpi",
                                     "maps/a.ota",
                                     "guis/A1.gui",
                                     "MOVES",
                                     "Vexillum/TC-C/a.ufo",
                                     "Vexillum/Map-A/a.ufo",
                                     "Vexillum/Map-A/maps/a.ota",
                                     "Vexillum/Map-B/b.hpi",
                                     "Vexillum/Map-Misc/c.ufo"};

std::string contentOf(std::string_view path) {
    return "bytes of " + std::string(path);
}

/// Whether every file of the user's is there, wherever.
bool areAllThere(const platform::MemoryDisk& disk) {
    std::set<std::string> missing;
    for (const auto* path : userFiles)
        missing.insert(contentOf(path));
    for (const auto& [path, content] : disk.files("/game"))
        missing.erase(content);
    for (const auto& content : missing)
        std::fprintf(stderr, "lost: %s\n", content.c_str());
    return missing.empty();
}

void reset(const std::shared_ptr<platform::MemoryDisk>& memory, bool modifierWasOn) {
    platform::Disk disk(memory);
    platform::NoLog log;
    Defaults answers;
    releases::GameDirectory game(disk, log, answers);
    game.open("/game");
    cycle::undo(game, cycle::readLastLaunch(game), modifierWasOn);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2)
        return 0;
    std::string_view rest(reinterpret_cast<const char*>(data) + 1, size - 1);
    const auto next = [&rest] {
        const auto end = std::min(rest.find('\f'), rest.size());
        const auto part = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        return part;
    };
    const bool ignoresCase = (data[0] & 1U) != 0;
    const bool modifierWasOn = (data[0] & 2U) != 0;
    const bool stateFits = (data[0] & 4U) != 0;
    const auto memory =
        std::make_shared<platform::MemoryDisk>(platform::MemoryDiskKind{ignoresCase, true, true});
    for (const auto* path : userFiles)
        memory->put(std::string("/game/") + path, contentOf(path));
    const auto journal = next();
    const auto put = [&](const char* name, std::string_view text) {
        if (!text.empty())
            memory->put(std::string("/game/Vexillum/VXL-Changes/") + name, text);
    };
    memory->putFolder("/game/Vexillum/VXL-Changes");
    put("Internal.txt", journal);
    put("Human.txt", next());
    auto state = formats::stateOf(journal, formats::State::Stage::applied);
    state.isCarriedOut = (data[0] & 8U) != 0;
    put("State.txt", stateFits ? formats::stateText(state) : std::string(next()));
    put("Pending.txt", next());
    for (int i = 0; i < 2; ++i) {
        reset(memory, modifierWasOn);
        if (!areAllThere(*memory))
            std::abort();
    }
    return 0;
}
