// Whole trees of entries, below open folders: copied to another disk, and removed.
#pragma once

#include <string>
#include <system_error>

#include "platform/disk.h"
#include "platform/raw_disk.h"

namespace platform {

/// Copies what is left of one file into another.
std::error_code copyBytes(RawDisk& disk, RawFile& from, RawFile& to, std::uint64_t expected,
                          const CopyProgress& onProgress = {});

/// Copies an entry with all that is in it: permissions, times, links as links, and names of one
/// file as names of one file. All of it is synced but for the new name itself. not_supported for
/// pipes, devices and the like. A failure leaves what was copied so far.
std::error_code copyEntry(RawDisk& disk, RawFolder& from, const std::string& name, RawFolder& to,
                          const std::string& newName);

/// Whether a folder may be removed that its owner has made read-only.
enum class ReadOnly { stays, goes };

/// Removes an entry with all that is in it. Links are removed, never followed. A failure leaves
/// what was not yet removed.
std::error_code removeEntry(RawDisk& disk, RawFolder& in, const std::string& name,
                            ReadOnly readOnly);

} // namespace platform
