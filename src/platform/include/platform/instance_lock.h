// One running copy of the program for each game directory.
#pragma once

#include <cstdint>
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

/// With `asks` a copy that holds the folder is told that it is wanted.
enum class Holder { isAsked, isLeftAlone };

struct LockOutcome {
    std::unique_ptr<InstanceLock> lock; ///< null if another copy holds the folder
    bool wasAnswered = false;           ///< that one has heard, and shows itself
};

/// Waits a few seconds for a copy that is just ending, as at a restart; one that answers is not
/// waited for. Where the system can lock nothing, the lock is taken without effect.
LockOutcome lockFolder(const std::string& folder, Holder holder);

/// With the copy that holds the folder: hears when another one is started there.
class Doorbell {
  public:
    Doorbell() = default;
    virtual ~Doorbell() = default;
    Doorbell(const Doorbell&) = delete;
    Doorbell& operator=(const Doorbell&) = delete;

    /// What to wait on until it rings: a descriptor to read from, or on Windows an event.
    virtual std::intptr_t handle() const = 0;
    /// Answers one ring. Who does not answer may be on its way out, and is waited for.
    virtual void answer() = 0;
};

/// Null where the system has nothing of the kind.
std::unique_ptr<Doorbell> hangDoorbell(const std::string& folder);

} // namespace platform
