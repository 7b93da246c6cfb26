// A listing is trusted while only this program changes the folder. Changes of others show in the
// folder's time.
#include "folder.h"

#include <algorithm>

#include "check.h"

namespace platform {
namespace {

using namespace std::chrono_literals;

constexpr auto trustedUnseen = 100ms;
/// The system's clock for files may stand still that long.
constexpr auto ticksOfFileTime = 50ms;
/// A listing in doubt is read again when the program's own changes pause or have gone on for long,
/// and at most for this share of the time.
constexpr auto longestBurst = 1s;
constexpr int shareOfListing = 100;

char withOtherCase(char c) {
    constexpr char caseBit = 0x20;
    const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    return isLetter ? static_cast<char>(c ^ caseBit) : c;
}

FileTime wallTime() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::nanoseconds>(now).count();
}

} // namespace

std::optional<RawEntry> Folder::look(const std::string& name, Links links) {
    RawEntry entry;
    if (disk_.look(*raw_, name, links, entry))
        return std::nullopt;
    return entry;
}

std::optional<std::string> Folder::spelling(const std::string& name) {
    const auto entry = look(name, Links::kept);
    if (!entry)
        return otherSpelling(name);
    return ignoresCase(name, *entry) ? otherSpelling(name).value_or(name) : name;
}

/// Of a file with several names, two may differ in case alone wherever it lies.
bool Folder::ignoresCase(const std::string& name, const RawEntry& entry) {
    if (disk_.ignoresCase())
        return true;
    if (!ignoresCase_) {
        auto other = name;
        std::transform(other.begin(), other.end(), other.begin(), withOtherCase);
        if (other == name || (entry.kind != RawKind::folder && entry.names > 1))
            return false;
        const auto same = look(other, Links::kept);
        ignoresCase_ = same && same->identity == entry.identity;
    }
    return *ignoresCase_;
}

std::optional<std::string> Folder::otherSpelling(const std::string& name) {
    learnNames();
    while (auto known = names_.find(name)) {
        if (look(*known, Links::kept))
            return known;
        // Somebody else took it away.
        names_.remove(*known);
    }
    return std::nullopt;
}

void Folder::noteAdded(const std::string& name) {
    isInDoubt_ = true;
    if (isListed_)
        names_.add(name);
}

void Folder::noteRemoved(const std::string& name) {
    isInDoubt_ = true;
    if (isListed_)
        names_.remove(name);
}

void Folder::learnNames() {
    const auto now = Clock::now();
    const bool isPause = now - askedAt_ >= trustedUnseen;
    askedAt_ = now;
    if (isListed_ && now - checkedAt_ < trustedUnseen)
        return;
    RawEntry self;
    check(disk_.lookAt(*raw_, self), "list", ".");
    checkedAt_ = now;
    if (isListed_ && isInDoubt_) {
        const auto share = listingTook_ * shareOfListing;
        if (now - listedAt_ < (isPause ? share : std::max<Clock::duration>(share, longestBurst)))
            return;
    }
    if (!isListed_ || isInDoubt_ || self.modified != modified_)
        list(self.modified);
}

void Folder::list(FileTime modified) {
    const auto start = Clock::now();
    std::vector<RawName> names;
    check(disk_.list(*raw_, names), "list", ".");
    names_.assign(names);
    modified_ = modified;
    isListed_ = true;
    // A change in the same tick of the clock would not show.
    isInDoubt_ = wallTime() - modified <
                 std::chrono::duration_cast<std::chrono::nanoseconds>(ticksOfFileTime).count();
    listedAt_ = checkedAt_ = Clock::now();
    listingTook_ = listedAt_ - start;
}

} // namespace platform
