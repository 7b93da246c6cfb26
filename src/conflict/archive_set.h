// The chosen archives, opened where they lie: which files they hold, and what of them cannot be
// read.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "conflict/archive_reports.h"
#include "formats/archive.h"

namespace conflict {

/// What is to be made of a file, by its path.
enum class FileKind : std::uint8_t { other, unit, guiPage, download };

/// A file in an archive. Archives are numbered from the one on which the game lays all others.
struct Place {
    std::uint32_t archive;
    std::uint32_t entry;
};

/// All places of one path, that of the file which the game takes first.
struct Stack {
    FileKind kind;
    std::vector<Place> places;
};

enum class Sameness { same, different, unreadable };

/// Unreadable files are noted, and from then on left alone.
class ArchiveSet {
  public:
    /// Opens them. Disk and log must outlive it.
    ArchiveSet(platform::Disk& disk, std::span<const ChosenArchive> chosen, platform::Log& log);

    /// The files that are to be looked into: those of which there are several, and all that are not
    /// of the kind `other`. Two names that differ in case alone are one file; of two with one path
    /// in one archive the later one counts.
    std::vector<Stack> stacks();

    Source sourceOf(const Place& place) const;
    std::string pathOf(const Place& place) const;
    std::uint64_t sizeOf(const Place& place) const;
    bool isReadable(const Place& place) const;

    /// Holds all files of a stack against the first one, each read to its end. Where the first one
    /// cannot be read, nothing is known of the others.
    std::vector<Sameness> compare(std::span<const Place> places);

    /// A text, or the beginning of one too long for any; nothing for a file that cannot be read.
    std::optional<std::string> readText(const Place& place);

    /// Unpacks all files once, to see whether that can be done.
    void readEverything();

    std::vector<DamagedArchive> damaged() const;

  private:
    struct Opened {
        ChosenArchive chosen;
        std::unique_ptr<platform::FileView> view;
        std::unique_ptr<formats::Archive> archive; ///< null where it could not be opened
        std::string fault;
        std::map<std::uint32_t, std::string> unreadable; ///< reasons, by entry
        std::uint64_t spent = 0;                         ///< bytes that were read out of it
    };
    /// A file on its way out of its archive.
    struct Reading {
        std::size_t number; ///< in the stack
        Place place;
        formats::Archive::Pieces pieces;
    };
    /// One path in one archive.
    struct Listed {
        std::size_t hash; ///< of the path
        Place place;
        FileKind kind;
    };

    void open(Opened& opened);
    void noteDamage(const Place& place, const std::string& reason);
    std::optional<Reading> begin(std::size_t number, const Place& place);
    std::optional<std::string_view> next(Reading& reading);
    void compareSome(const Place& taken, std::vector<Reading>& rivals,
                     std::vector<Sameness>& result);
    std::vector<Listed> listAll();
    void addStacks(std::span<const Listed> sameHash, std::vector<Stack>& stacks) const;

    platform::Disk& disk_;
    platform::Log& log_;
    std::vector<Opened> archives_;
};

} // namespace conflict
