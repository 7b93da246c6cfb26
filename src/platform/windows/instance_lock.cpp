// A named mutex for each folder.
#include "platform/instance_lock.h"

#include <windows.h>

#include "platform/text.h"
#include "system_text.h"

namespace platform {
namespace {

constexpr DWORD restartTakes = 4000;

class FolderLock final : public InstanceLock {
  public:
    explicit FolderLock(HANDLE mutex) : mutex_(mutex) {}
    ~FolderLock() override {
        if (mutex_ != nullptr) {
            ReleaseMutex(mutex_);
            CloseHandle(mutex_);
        }
    }

  private:
    HANDLE mutex_;
};

} // namespace

std::unique_ptr<InstanceLock> lockFolder(const std::string& folder) {
    const auto name = "Vexillum " + replaceAll(foldCase(folder), "\\", "/");
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, windows::wide(name).c_str());
    if (mutex != nullptr && WaitForSingleObject(mutex, restartTakes) == WAIT_TIMEOUT) {
        CloseHandle(mutex);
        return nullptr;
    }
    return std::make_unique<FolderLock>(mutex);
}

} // namespace platform
