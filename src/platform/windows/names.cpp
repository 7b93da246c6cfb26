// Names: renames, links, removal.
#include "platform/text.h"
#include "system_error.h"
#include "windows_disk.h"

namespace platform::windows {

/// Without MOVEFILE_REPLACE_EXISTING the system never replaces.
RawDisk::Error WindowsDisk::renameNew(RawFolder& from, const std::string& name, RawFolder& to,
                                      const std::string& newName) {
    return errorOf(MoveFileExW(pathOf(from, name).c_str(), pathOf(to, newName).c_str(),
                               MOVEFILE_WRITE_THROUGH));
}

/// An entry in the way of its own new spelling is no other one, which only a plain rename knows.
RawDisk::Error WindowsDisk::renameOver(RawFolder& from, const std::string& name, RawFolder& to,
                                       const std::string& newName) {
    const bool isSame = pathOf(from) == pathOf(to) && equalIgnoringCase(name, newName);
    return errorOf(
        MoveFileExW(pathOf(from, name).c_str(), pathOf(to, newName).c_str(),
                    MOVEFILE_WRITE_THROUGH | (isSame ? 0U : DWORD{MOVEFILE_REPLACE_EXISTING})));
}

RawDisk::Error WindowsDisk::hardLink(RawFolder& from, const std::string& name, RawFolder& to,
                                     const std::string& newName) {
    return errorOf(
        CreateHardLinkW(pathOf(to, newName).c_str(), pathOf(from, name).c_str(), nullptr));
}

/// Making links needs rights that players seldom have, so none is moved between disks.
RawDisk::Error WindowsDisk::readLink(RawFolder& /*in*/, const std::string& /*name*/,
                                     std::string& /*target*/) {
    return codeOf(ERROR_NOT_SUPPORTED);
}

RawDisk::Error WindowsDisk::makeLink(RawFolder& /*in*/, const std::string& /*name*/,
                                     const std::string& /*target*/) {
    return codeOf(ERROR_NOT_SUPPORTED);
}

RawDisk::Error WindowsDisk::unlink(RawFolder& in, const std::string& name) {
    const auto path = pathOf(in, name);
    RawEntry entry;
    if (const auto error = look(in, name, Links::kept, entry))
        return error;
    const auto attributes = GetFileAttributesW(path.c_str());
    const bool leadsToFolder =
        attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (entry.kind == RawKind::link && leadsToFolder)
        return errorOf(RemoveDirectoryW(path.c_str()));
    return errorOf(DeleteFileW(path.c_str()));
}

} // namespace platform::windows

namespace platform {

std::shared_ptr<RawDisk> makeRawDisk() {
    return std::make_shared<windows::WindowsDisk>();
}

} // namespace platform
