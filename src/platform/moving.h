// Moves of one entry between two folders, on one disk or across two.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "folder.h"
#include "platform/raw_disk.h"

namespace platform {

/// Gives an entry a new name on its own disk. file_exists, with nothing changed, where anything has
/// that name; where the file system cannot refuse to replace, a way is gone that does.
std::error_code renameWithoutReplacing(RawDisk& disk, RawFolder& from, const std::string& name,
                                       RawFolder& to, const std::string& newName);

/// Moves an entry to another disk, whole or not at all. False where the new name is taken. Throws
/// Failure with `path` where the copy fails: then it is gone again and the original untouched.
/// `copy` makes a synced copy of the original in the target's folder, under the name given;
/// `syncNewName` is called when the copy is in its place, and before the original goes.
bool moveAcross(RawDisk& disk, Folder& from, const std::string& name, Folder& to,
                const std::string& newName, std::string_view path,
                const std::function<std::error_code(const std::string& name)>& copy,
                const std::function<std::error_code()>& syncNewName);

} // namespace platform
