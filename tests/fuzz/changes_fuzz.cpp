// Any text as a file of VXL-Changes: whatever passes for whole comes out as it went in, and no note
// leads out of the game directory.
#include <cstdint>
#include <cstdlib>

#include "formats/journal.h"
#include "formats/state.h"
#include "formats/trellis_notes.h"
#include "platform/relative_path.h"

namespace {

void hold(bool isTrue) {
    if (!isTrue)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto journal = formats::readJournal(text);
    hold(journal.has_value() || !formats::looksWhole(text));
    if (journal) {
        const auto again = formats::readJournal(formats::journalText(*journal));
        hold(again && again->moves.size() == journal->moves.size() &&
             again->folders.size() == journal->folders.size());
    }
    if (const auto twin = formats::readHuman(text)) {
        const auto again = formats::readHuman(formats::humanText(*twin));
        hold(again && formats::journalText(*again) == formats::journalText(*twin));
    }
    const auto pending = formats::readPending(text);
    if (pending.isWhole) {
        const auto again = formats::readPending(formats::pendingText(pending.pending));
        hold(again.isWhole && again.pending.moves.size() == pending.pending.moves.size());
    }
    if (const auto state = formats::readState(text))
        hold(formats::stateText(*state) == text);
    const auto notes = formats::readTrellisNotes(text);
    for (const auto& path : notes.notes.files)
        hold(platform::RelativePath::accepts(path, platform::PathRules::own()));
    const auto again = formats::readTrellisNotes(formats::trellisNotesText(notes.notes));
    hold(again.isWhole && again.notes.files == notes.notes.files &&
         again.notes.isMade == notes.notes.isMade);
    return 0;
}
