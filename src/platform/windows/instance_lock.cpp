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

bool lookAtFolder(const std::string& folder, RawEntry& entry) {
    const auto handle =
        windows::openEntry(windows::rawForm(absoluteFolder(folder)), Links::followed);
    return handle && !windows::lookAtHandle(handle.get(), entry);
}

/// Of one user: another one's windows cannot be shown.
std::wstring bellName(const RawEntry& folder, const wchar_t* what) {
    return L"Local\\Vexillum " + std::wstring(what) + L" " +
           std::to_wstring(folder.identity.device) + L" " + std::to_wstring(folder.identity.number);
}

class EventBell final : public Doorbell {
  public:
    EventBell(HANDLE rings, HANDLE answers) : rings_(rings), answers_(answers) {}
    ~EventBell() override {
        CloseHandle(rings_);
        CloseHandle(answers_);
    }

    std::intptr_t handle() const override { return reinterpret_cast<std::intptr_t>(rings_); }
    void answer() override { SetEvent(answers_); }

  private:
    HANDLE rings_;
    HANDLE answers_;
};

/// Rings and waits a moment. Windows shows only windows of programs that may come to the front.
bool isAnswered(const RawEntry& folder) {
    const HANDLE rings = OpenEventW(EVENT_MODIFY_STATE, FALSE, bellName(folder, L"rings").c_str());
    const HANDLE answers = OpenEventW(SYNCHRONIZE, FALSE, bellName(folder, L"answers").c_str());
    bool answered = false;
    if (rings != nullptr && answers != nullptr) {
        AllowSetForegroundWindow(ASFW_ANY);
        SetEvent(rings);
        answered =
            WaitForSingleObject(answers, static_cast<DWORD>(betweenTries.count())) == WAIT_OBJECT_0;
    }
    for (const HANDLE event : {rings, answers})
        if (event != nullptr)
            CloseHandle(event);
    return answered;
}

} // namespace

LockOutcome lockFolder(const std::string& folder, Holder holder) {
    RawEntry entry;
    if (!lookAtFolder(folder, entry))
        return {std::make_unique<FolderLock>()};
    const auto name = mutexName(entry);
    const auto end = std::chrono::steady_clock::now() + restartTakes;
    for (;;) {
        bool isHeld = false;
        const HANDLE mutex = openMutex(name, isHeld);
        if (!isHeld)
            return {std::make_unique<FolderLock>(mutex)};
        if (mutex != nullptr)
            CloseHandle(mutex);
        if (holder == Holder::isAsked && isAnswered(entry))
            return {nullptr, true};
        if (std::chrono::steady_clock::now() > end)
            return {};
        std::this_thread::sleep_for(betweenTries);
    }
}

std::unique_ptr<Doorbell> hangDoorbell(const std::string& folder) {
    RawEntry entry;
    if (!lookAtFolder(folder, entry))
        return nullptr;
    const HANDLE rings = CreateEventW(nullptr, FALSE, FALSE, bellName(entry, L"rings").c_str());
    const HANDLE answers = CreateEventW(nullptr, FALSE, FALSE, bellName(entry, L"answers").c_str());
    return std::make_unique<EventBell>(rings, answers);
}

} // namespace platform
