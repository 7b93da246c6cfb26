// The texts that tell of changes, cut and damaged: what is not whole must not pass for it.
#include <algorithm>

#include <gtest/gtest.h>

#include "formats/journal.h"
#include "formats/state.h"
#include "formats/trellis_notes.h"

namespace formats {
namespace {

const Journal journal = {{"maps", "MOVES"},
                         {{"a.ufo", "Vexillum\\TC-Cavedog TA\\a.ufo", "Cavedog TA", 3},
                          {"Vexillum\\Map-A 1:\\a.ufo", "a.ufo", "A 1:", 1},
                          {"Vexillum\\Map-A 1:\\END", "END", "A 1:", 1}}};

State someState() {
    auto state = stateOf(journalText(journal), State::Stage::applied);
    state.isCarriedOut = true;
    state.failedMoves = {2, 31};
    return state;
}

TEST(ChangeTexts, come_back_as_they_were_written) {
    for (const auto stage : {State::Stage::applied, State::Stage::undone}) {
        auto state = someState();
        state.stage = stage;
        const auto read = readState(stateText(state));
        ASSERT_TRUE(read);
        EXPECT_EQ(stateText(*read), stateText(state));
        EXPECT_EQ(read->failedMoves, state.failedMoves);
    }
    const auto twin = readHuman(humanText(journal));
    ASSERT_TRUE(twin);
    EXPECT_EQ(journalText(*twin), journalText(journal));
    EXPECT_EQ(humanText(*twin), humanText({{"maps", "MOVES"}, journal.moves}));
    const auto pending = readPending(pendingText(journal));
    EXPECT_TRUE(pending.isWhole);
    EXPECT_EQ(journalText(pending.pending), journalText(journal));
    EXPECT_TRUE(readHuman(""));
}

TEST(ChangeTexts, cut_anywhere_are_known_as_cut) {
    const auto state = stateText(someState());
    for (std::size_t size = 0; size < state.size(); ++size)
        EXPECT_FALSE(readState(state.substr(0, size))) << size;
    const auto pending = pendingText(journal);
    for (std::size_t size = 0; size < pending.size(); ++size)
        EXPECT_FALSE(readPending(pending.substr(0, size)).isWhole) << size;
    const auto text = journalText(journal);
    const auto human = humanText(journal);
    for (std::size_t size = 0; size < text.size(); ++size)
        EXPECT_FALSE(fits(someState(), text.substr(0, size))) << size;
    for (std::size_t size = 0; size < human.size(); ++size) {
        const auto twin = readHuman(human.substr(0, size));
        EXPECT_FALSE(twin && fits(someState(), journalText(*twin))) << size;
    }
}

TEST(ChangeTexts, with_a_byte_changed_are_not_taken_for_whole) {
    const auto state = stateText(someState());
    for (std::size_t at = 0; at < state.size(); ++at) {
        auto damaged = state;
        damaged[at] = static_cast<char>(damaged[at] ^ 0x10);
        const auto read = readState(damaged);
        // A digit may still be a digit: then it is the state of another journal, or of other moves.
        EXPECT_TRUE(!read || stateText(*read) == damaged) << at;
    }
    EXPECT_FALSE(readHuman("any line\r\nand another\r\n"));
    EXPECT_FALSE(readHuman(" Move for A x:\r\na\t --> \tb\r\n"));
    EXPECT_FALSE(readPending("MKDIRS\r\nMOVES\r\na\r\nEND\r\n").isWhole);
    for (const auto* cut : {"MKDIRS\r\nMOVES\r\na\r\n", "MKDIRS\r\nMOVES\r\na\r\nb", "MKDIRS\r\n"})
        EXPECT_FALSE(looksWhole(cut)) << cut;
    EXPECT_TRUE(looksWhole("MOVES\r\nMKDIRS\r\nMOVES\r\na\r\nb\r\n"));
}

TEST(TrellisNotes, hold_what_may_be_removed_and_nothing_else) {
    const TrellisNotes made = {{"guis\\A1.gui", "download\\u.tdf", "anims\\x\\b.gaf"}, true};
    const auto text = trellisNotesText(made);
    const auto whole = readTrellisNotes(text);
    EXPECT_TRUE(whole.isWhole);
    EXPECT_TRUE(whole.notes.isMade);
    EXPECT_EQ(whole.notes.files, made.files);
    for (std::size_t size = 0; size < text.size(); ++size) {
        const auto cut = readTrellisNotes(text.substr(0, size));
        EXPECT_FALSE(cut.isWhole) << size;
        for (const auto& file : cut.notes.files)
            EXPECT_TRUE(std::count(made.files.begin(), made.files.end(), file)) << file;
    }
    for (const auto* away : {"..\\a", "guis\\..\\..\\a", "C:\\a", "\\etc\\x", "totala.exe", ""})
        EXPECT_TRUE(readTrellisNotes(std::string(away) + "\r\nEND\r\n").notes.files.empty())
            << away;
}

} // namespace
} // namespace formats
