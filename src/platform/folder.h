// One real folder, whatever spellings and paths led to it, and the names it has.
#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>

#include "name_index.h"
#include "platform/disk.h"
#include "platform/raw_disk.h"

namespace platform {

/// Names are looked up exactly first, which costs one call. A miss is answered from a listing that
/// follows the program's own changes.
class Folder {
  public:
    Folder(RawDisk& disk, std::unique_ptr<RawFolder> raw) : disk_(disk), raw_(std::move(raw)) {}

    RawFolder& raw() { return *raw_; }
    bool isListed() const { return isListed_; }

    /// Takes another handle of the same folder: a system that holds on to names alone needs one
    /// after each change of a name on the way.
    void takeHandle(std::unique_ptr<RawFolder> raw) { raw_ = std::move(raw); }

    std::optional<RawEntry> look(const std::string& name, Links links);

    /// The spelling of an entry, or nothing.
    std::optional<std::string> spelling(const std::string& name);
    /// The spelling of an entry of which the one given was already missed.
    std::optional<std::string> otherSpelling(const std::string& name);
    /// Whether names that differ in case alone are one to the file system that the folder lies on,
    /// told by an entry that is there. A memory stick may be so where the system is not.
    bool ignoresCase(const std::string& name, const RawEntry& entry);
    /// Whether there is an entry of that name in any case.
    bool has(const std::string& name) { return otherSpelling(name).has_value(); }

    /// Whether a path led through the entry, so that its new name must be found anew.
    bool wasOpened(const std::string& name) const {
        return !opened_.isEmpty() && opened_.find(name).has_value();
    }
    void noteOpened(const std::string& name) {
        if (!opened_.find(name))
            opened_.add(name);
    }

    /// The program's own changes: a name that was not there, one that was, or neither. Each changes
    /// the folder's time too.
    void noteAdded(const std::string& name);
    void noteRemoved(const std::string& name);
    void noteChanged() { isInDoubt_ = true; }

  private:
    using Clock = std::chrono::steady_clock;

    void learnNames();
    void list(FileTime modified);

    RawDisk& disk_;
    std::unique_ptr<RawFolder> raw_;
    /// In any case: the system may have taken another spelling.
    NameIndex opened_;

    std::optional<bool> ignoresCase_;
    NameIndex names_;
    bool isListed_ = false;
    /// Whether the folder's time no longer tells changes of others from the program's own.
    bool isInDoubt_ = false;
    FileTime modified_ = 0;
    Clock::time_point listedAt_;
    Clock::time_point checkedAt_;
    Clock::time_point askedAt_;
    Clock::duration listingTook_{};
};

} // namespace platform
