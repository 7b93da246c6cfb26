// Programs on Windows: all of them by the shell, which asks for an administrator's rights where a
// program wants them, and also opens folders, texts and pages.
#include "platform/programs.h"

#include <utility>

#include <windows.h>

#include <shellapi.h>
#include <tlhelp32.h>

#include "platform/disk.h"
#include "platform/failure.h"
#include "system_error.h"
#include "system_text.h"
#include "watched_program.h"

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

/// ERROR_ELEVATION_REQUIRED, which MinGW has no name for.
constexpr DWORD elevationRequired = 740;
constexpr auto handedOverVariable = L"VEXILLUM_HANDED_OVER";
/// What Windows lets one variable have.
constexpr std::size_t longestVariable = 32'000;

/// As the program's own start takes it apart again. Before a quote, also the one at the end, a
/// backslash would stand for that.
std::wstring quoted(const std::string& word) {
    std::wstring text = L"\"";
    std::size_t backslashes = 0;
    for (const auto c : windows::wide(word)) {
        if (c == L'"')
            text.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        text += c;
    }
    return text.append(backslashes, L'\\') + L"\"";
}

std::wstring argumentsOf(const Command& command) {
    std::wstring text;
    for (const auto& word : command.words)
        text += (text.empty() ? L"" : L" ") + quoted(word);
    if (!command.arguments.empty())
        text += (text.empty() ? L"" : L" ") + windows::wide(command.arguments);
    return text;
}

class WindowsPrograms final : public Programs {
  public:
    explicit WindowsPrograms(Disk& disk) : disk_(disk) {}

    void start(const Command& command) override { startByShell(command, 0); }

    /// The shell alone asks for an administrator's rights; what it starts cannot be put into a job.
    std::unique_ptr<RunningProgram> startWatched(const Command& command) override {
        auto program = std::make_unique<windows::WatchedProgram>();
        const auto path = windows::wide(disk_.systemPath(command.target));
        auto commandLine = L"\"" + path + L"\"";
        if (const auto arguments = argumentsOf(command); !arguments.empty())
            commandLine += L" " + arguments;
        const auto error =
            program->start(path, std::move(commandLine), path.substr(0, path.rfind(L'\\') + 1),
                           static_cast<WORD>(showCommand(command.window)));
        if (error == elevationRequired) {
            if (HANDLE process = startByShell(command, SEE_MASK_NOCLOSEPROCESS); process != nullptr)
                program->watch(process);
        } else if (error != ERROR_SUCCESS) {
            throw Failure("start", command.target, windows::codeOf(error));
        }
        return program;
    }

    bool isRunning(const std::string& program) override {
        const auto path = windows::wide(disk_.systemPath(program));
        HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
        if (snapshot == INVALID_HANDLE_VALUE)
            return false;
        PROCESSENTRY32W entry{};
        entry.dwSize = sizeof entry;
        bool found = false;
        for (BOOL more = Process32FirstW(snapshot, &entry); more != 0 && !found;
             more = Process32NextW(snapshot, &entry))
            found = isProgram(entry.th32ProcessID, path);
        CloseHandle(snapshot);
        return found;
    }

  private:
    /// Gives back the process where the mask asks for it.
    HANDLE startByShell(const Command& command, ULONG mask) {
        const auto path = windows::wide(disk_.systemPath(command.target));
        const auto arguments = argumentsOf(command);
        // With the separator: "C:" alone would be the current folder of that drive.
        const auto folder = path.substr(0, path.rfind(L'\\') + 1);
        const bool isProgram = command.kind == Command::Kind::program;
        SHELLEXECUTEINFOW info{};
        info.cbSize = sizeof info;
        // The shell's own boxes would say the same once more.
        info.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC | mask;
        info.lpFile = path.c_str();
        info.lpParameters = arguments.empty() ? nullptr : arguments.c_str();
        info.lpDirectory = isProgram ? folder.c_str() : nullptr;
        info.nShow = showCommand(command.window);
        const auto handedOver = windows::wide(command.handedOver);
        const bool isHandedOver = !handedOver.empty() && handedOver.size() < longestVariable;
        if (isHandedOver)
            SetEnvironmentVariableW(handedOverVariable, handedOver.c_str());
        const bool isStarted = ShellExecuteExW(&info) != 0;
        const auto error = windows::lastError();
        if (isHandedOver)
            SetEnvironmentVariableW(handedOverVariable, nullptr);
        if (!isStarted)
            throw Failure(isProgram ? "start" : "open", command.target, error);
        return info.hProcess;
    }

    static bool isProgram(DWORD number, const std::wstring& path) {
        HANDLE process = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, number);
        if (process == nullptr)
            return false;
        constexpr DWORD longest = 32768;
        std::wstring image(longest, L'\0');
        DWORD size = longest;
        const bool isKnown = QueryFullProcessImageNameW(process, 0, image.data(), &size) != 0;
        CloseHandle(process);
        return isKnown && CompareStringOrdinal(image.data(), static_cast<int>(size), path.data(),
                                               static_cast<int>(path.size()), TRUE) == CSTR_EQUAL;
    }

    Disk& disk_;
};

} // namespace

std::string takeHandedOver() {
    std::wstring text(longestVariable, L'\0');
    const auto size =
        GetEnvironmentVariableW(handedOverVariable, text.data(), static_cast<DWORD>(text.size()));
    text.resize(size < text.size() ? size : 0);
    SetEnvironmentVariableW(handedOverVariable, nullptr);
    return windows::narrow(text);
}

std::string winePrefixOf(const std::string& /*systemPath*/) {
    return {};
}

bool takesWrappers() {
    return false;
}

std::string reasonAgainstWrapper(const std::string& /*wrapper*/) {
    return {};
}

std::unique_ptr<Programs> makePrograms(Disk& disk) {
    return std::make_unique<WindowsPrograms>(disk);
}

} // namespace platform
