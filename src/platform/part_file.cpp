// Part files bear the number of their process, so that those of dead ones can be told.
#include "part_file.h"

#include <algorithm>
#include <atomic>
#include <charconv>

#include "check.h"
#include "system_path.h"

namespace platform {
namespace {

constexpr std::string_view partHead = ".vexillum-part-";

} // namespace

bool isPart(std::string_view name) {
    return name.starts_with(partHead);
}

bool isLeftOver(std::string_view name) {
    if (!isPart(name))
        return false;
    unsigned long process = 0;
    const auto* end = name.data() + name.size();
    const auto number = std::from_chars(name.data() + partHead.size(), end, process);
    return number.ec == std::errc() && number.ptr != end && *number.ptr == '-' &&
           !processRuns(process);
}

std::string nextPartName() {
    static std::atomic<unsigned> number = 0;
    static const auto head = std::string(partHead) + std::to_string(processNumber()) + "-";
    return head + std::to_string(++number);
}

PartFile::PartFile(RawDisk& disk, Folder& folder, std::string_view path, std::uint32_t mode)
    : disk_(disk), folder_(folder), path_(path) {
    std::error_code error;
    do {
        name_ = nextPartName();
        error = disk_.createFile(folder_.raw(), name_, mode, file_);
    } while (error == std::errc::file_exists);
    if (error)
        fail("write", path_, error);
    folder_.noteChanged();
}

void PartFile::write(std::string_view bytes) {
    check(disk_.write(*file_, bytes), "write", path_);
}

void PartFile::sync() {
    check(disk_.sync(*file_), "write", path_);
}

void PartFile::syncDisk(std::vector<std::uint64_t>& synced) {
    RawEntry folder;
    check(disk_.lookAt(folder_.raw(), folder), "write", path_);
    if (std::find(synced.begin(), synced.end(), folder.identity.device) != synced.end())
        return;
    check(disk_.syncAll(folder_.raw()), "write", path_);
    synced.push_back(folder.identity.device);
}

void PartFile::takeTimes(const RawEntry& model) {
    RawEntry own;
    check(disk_.lookAt(*file_, own), "write", path_);
    own.accessed = model.accessed;
    own.modified = model.modified;
    disk_.setLike(*file_, own);
}

void PartFile::replace(const std::string& leaf) {
    file_.reset();
    check(disk_.renameOver(folder_.raw(), name_, folder_.raw(), leaf), "write", path_);
    folder_.noteChanged();
}

void PartFile::discard() {
    file_.reset();
    disk_.unlink(folder_.raw(), name_);
}

} // namespace platform
