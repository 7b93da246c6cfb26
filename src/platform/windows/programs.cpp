// Programs on Windows: all of them by the shell, which also opens folders, texts and pages.
#include "platform/programs.h"

#include <windows.h>

#include <shellapi.h>

#include "platform/disk.h"
#include "platform/failure.h"
#include "system_text.h"

namespace platform {
namespace {

int showCommand(StartWindow window) {
    switch (window) {
    case StartWindow::maximized:
        return SW_SHOWMAXIMIZED;
    case StartWindow::minimized:
        return SW_SHOWMINNOACTIVE;
    default:
        return SW_SHOWNORMAL;
    }
}

class WindowsPrograms final : public Programs {
  public:
    explicit WindowsPrograms(Disk& disk) : disk_(disk) {}

    void start(const Command& command) override {
        const auto path = windows::wide(disk_.systemPath(command.target));
        const auto arguments = windows::wide(command.arguments);
        const auto folder = path.substr(0, path.rfind(L'\\'));
        const auto result = reinterpret_cast<INT_PTR>(
            ShellExecuteW(nullptr, L"open", path.c_str(), arguments.c_str(), folder.c_str(),
                          showCommand(command.window)));
        constexpr INT_PTR greatestError = 32;
        if (result <= greatestError)
            throw Failure("start", command.target,
                          windows::messageOf(static_cast<unsigned long>(result)));
    }

  private:
    Disk& disk_;
};

} // namespace

std::unique_ptr<Programs> makePrograms(Disk& disk) {
    return std::make_unique<WindowsPrograms>(disk);
}

} // namespace platform
