// The modifier runs only where none of its folders is there, so each of them is its own, but not
// all that comes to lie in them.
#include "trellis_removal.h"

#include <optional>
#include <set>
#include <string>

#include "cycle/change_files.h"
#include "formats/trellis_notes.h"
#include "platform/failure.h"
#include "platform/text.h"

namespace cycle {
namespace {

class Removal {
  public:
    explicit Removal(const releases::GameDirectory& game) : game_(game) {}

    void run(bool modifierWasOn) {
        const auto file = trellisFile(game_);
        const bool isNoted = game_.disk().kindOf(file) == platform::EntryKind::file;
        if (!isNoted && !modifierWasOn)
            return;
        formats::TrellisNotesRead read;
        platform::attempt([&] { read = formats::readTrellisNotes(game_.disk().readFile(file)); });
        const auto madeAt = read.notes.isMade ? game_.disk().factsOf(file).changed : 0;
        for (const auto& path : read.notes.files)
            remove(path, madeAt);
        for (const auto* folder : modifierFolders)
            removeFolder(folder, read.isWhole);
        if (!stayed_.empty())
            tell();
        if (!isNoted || hasFailed_)
            return;
        platform::attempt([&] {
            game_.disk().flush();
            game_.disk().removeFile(file);
        });
    }

  private:
    void remove(const std::string& path, std::int64_t madeAt) {
        game_.log().breathe();
        const auto full = game_.at(path);
        const auto facts = game_.disk().factsOf(full);
        if (facts.kind != platform::EntryKind::file || (madeAt != 0 && facts.changed > madeAt))
            return;
        try {
            game_.disk().removeFile(full);
        } catch (const platform::Failure& failure) {
            hasFailed_ = true;
            reason_ = failure.reason();
        }
        for (auto cut = path.rfind('\\'); cut != std::string::npos && path.find('\\') != cut;
             cut = path.rfind('\\', cut - 1))
            platform::attempt([&] { game_.disk().removeFolder(game_.at(path.substr(0, cut))); });
    }

    void removeFolder(const std::string& folder, bool isWhole) {
        const auto path = game_.at(folder);
        game_.log().line("Removing Directory \"" + platform::shownPath(path) + "\"");
        if (!game_.DoesFolderExist(path) ||
            platform::attempt([&] { game_.disk().removeFolder(path); }))
            return;
        if (!isWhole && moveAside(folder))
            return;
        const auto names = game_.list(path).value_or(platform::FolderNames());
        for (const auto* each : {&names.folders, &names.files})
            for (const auto& name : *each)
                stayed_.push_back(path + "\\" + name);
    }

    bool moveAside(const std::string& folder) {
        for (int number = 1;; ++number) {
            const auto aside = changeFile(game_, "Trellis (kept " + std::to_string(number) + ")");
            if (game_.disk().kindOf(aside + "\\" + folder) != platform::EntryKind::none)
                continue;
            const bool isMoved = platform::attempt([&] {
                if (!game_.disk().moveEntry(game_.at(folder), aside + "\\" + folder))
                    throw platform::Failure("move", folder, "it is not there");
            });
            if (isMoved)
                game_.log().line("Nobody knows whose its files are: they are kept in \"" +
                                 platform::shownPath(aside) + "\"");
            return isMoved;
        }
    }

    void tell() {
        std::vector<std::string> names;
        for (const auto& path : stayed_) {
            names.push_back(platform::shownPath(path));
            game_.log().line("\"" + names.back() + "\" is not the Trellis' and stays");
        }
        game_.questions().ask(
            {"These files are not what the Trellis made, so they stay:\r\n\r\n" +
                 platform::shownList(names) +
                 "\r\nThe Trellis cannot be used while these folders are there. Please move the "
                 "files to a place of yours if you want to use it.",
             {"OK"},
             0,
             reason_});
    }

    const releases::GameDirectory& game_;
    std::vector<std::string> stayed_;
    std::string reason_;
    bool hasFailed_ = false;
};

} // namespace

void removeModifierOutput(const releases::GameDirectory& game, bool modifierWasOn) {
    Removal(game).run(modifierWasOn);
}

} // namespace cycle
