// One running copy of the program for each game directory.
#pragma once

#include <memory>
#include <string>

namespace platform {

/// Held by the running copy, and gone with it however it ends. It leaves no file behind, and keeps
/// nobody else from the folder.
class InstanceLock {
  public:
    InstanceLock() = default;
    virtual ~InstanceLock() = default;
    InstanceLock(const InstanceLock&) = delete;
    InstanceLock& operator=(const InstanceLock&) = delete;
};

/// Waits a few seconds for a copy that is just ending, as at a restart. Null if another copy holds
/// the folder still. Where the system can lock nothing, the lock is taken without effect.
std::unique_ptr<InstanceLock> lockFolder(const std::string& folder);

} // namespace platform
