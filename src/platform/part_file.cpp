// Part files bear the number of their process, so that those of dead ones can be told.
#include "part_file.h"

#include <atomic>

#include "check.h"
#include "system_path.h"

namespace platform {

std::string nextPartName() {
    static std::atomic<unsigned> number = 0;
    static const auto head = ".vexillum-part-" + std::to_string(processNumber()) + "-";
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
        throw Refused("write", shownPath(path_), error);
    folder_.noteChanged();
}

void PartFile::write(std::string_view bytes) {
    check(disk_.write(*file_, bytes), "write", path_);
}

void PartFile::sync() {
    check(disk_.sync(*file_), "write", path_);
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
