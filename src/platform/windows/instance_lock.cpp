// A named mutex for each folder, by the folder's number: it may have many names.
#include "platform/instance_lock.h"

#include <chrono>
#include <thread>

#include "paths.h"
#include "platform/disk.h"
#include "windows_disk.h"

namespace platform {
namespace {

using namespace std::chrono_literals;

constexpr auto restartTakes = 4s;
constexpr auto betweenTries = 50ms;

class FolderLock final : public InstanceLock {
  public:
    FolderLock() = default;
    explicit FolderLock(HANDLE mutex) : mutex_(mutex) {}
    ~FolderLock() override {
        if (mutex_ != nullptr) {
            ReleaseMutex(mutex_);
            CloseHandle(mutex_);
        }
    }

  private:
    HANDLE mutex_ = nullptr;
};

/// Every user of the machine is to see it.
std::wstring mutexName(const RawEntry& folder) {
    return L"Global\\Vexillum " + std::to_wstring(folder.identity.device) + L" " +
           std::to_wstring(folder.identity.number);
}

/// One that another user made may be closed to this one, and is held then as well.
HANDLE openMutex(const std::wstring& name, bool& isHeld) {
    SECURITY_DESCRIPTOR everyone{};
    InitializeSecurityDescriptor(&everyone, SECURITY_DESCRIPTOR_REVISION);
    SetSecurityDescriptorDacl(&everyone, TRUE, nullptr, FALSE);
    SECURITY_ATTRIBUTES attributes{sizeof attributes, &everyone, FALSE};
    const HANDLE mutex = CreateMutexW(&attributes, FALSE, name.c_str());
    isHeld = mutex == nullptr ? GetLastError() == ERROR_ACCESS_DENIED
                              : WaitForSingleObject(mutex, 0) == WAIT_TIMEOUT;
    return mutex;
}

} // namespace

std::unique_ptr<InstanceLock> lockFolder(const std::string& folder) {
    const auto handle =
        windows::openEntry(windows::rawForm(absoluteFolder(folder)), Links::followed);
    RawEntry entry;
    if (!handle || windows::lookAtHandle(handle.get(), entry))
        return std::make_unique<FolderLock>();
    const auto name = mutexName(entry);
    const auto end = std::chrono::steady_clock::now() + restartTakes;
    for (;;) {
        bool isHeld = false;
        const HANDLE mutex = openMutex(name, isHeld);
        if (!isHeld)
            return std::make_unique<FolderLock>(mutex);
        if (mutex != nullptr)
            CloseHandle(mutex);
        if (std::chrono::steady_clock::now() > end)
            return nullptr;
        std::this_thread::sleep_for(betweenTries);
    }
}

} // namespace platform
