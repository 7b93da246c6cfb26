// A lock on the folder itself, which leaves no file behind.
#include "platform/instance_lock.h"

#include <cerrno>
#include <chrono>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace platform {
namespace {

constexpr auto restartTakes = std::chrono::seconds(4);

class FolderLock final : public InstanceLock {
  public:
    explicit FolderLock(int folder) : folder_(folder) {}
    ~FolderLock() override {
        if (folder_ >= 0)
            ::close(folder_);
    }

  private:
    int folder_;
};

} // namespace

std::unique_ptr<InstanceLock> lockFolder(const std::string& folder) {
    const int handle = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    auto lock = std::make_unique<FolderLock>(handle);
    const auto end = std::chrono::steady_clock::now() + restartTakes;
    while (handle >= 0 && ::flock(handle, LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK)
            break;
        if (std::chrono::steady_clock::now() > end)
            return nullptr;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return lock;
}

} // namespace platform
