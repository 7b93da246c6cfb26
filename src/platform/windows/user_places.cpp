// By the variables that Windows sets for each user.
#include "platform/user_places.h"

#include <windows.h>

#include "platform/disk.h"
#include "platform/failure.h"
#include "system_error.h"
#include "system_text.h"

namespace platform {
namespace {

constexpr std::size_t longestVariable = 32'767;

std::string folderBy(const wchar_t* name) {
    std::wstring value(longestVariable, L'\0');
    const auto size = GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
    value.resize(size < value.size() ? size : 0);
    return value.empty() ? "" : absoluteFolder(windows::narrow(value));
}

bool isFolder(const std::string& folder) {
    const auto attributes = GetFileAttributesW(windows::wide(folder).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

} // namespace

UserPlaces userPlaces() {
    UserPlaces places;
    places.current = absoluteFolder(".");
    places.home = folderBy(L"USERPROFILE");
    if (const auto settings = folderBy(L"APPDATA"); !settings.empty())
        places.settings = settings + "\\Vexillum";
    places.data = folderBy(L"LOCALAPPDATA");
    for (const auto* name : {L"ProgramFiles", L"ProgramFiles(x86)", L"ProgramW6432"})
        if (auto folder = folderBy(name); !folder.empty())
            places.programs.push_back(std::move(folder));
    if (const auto drive = folderBy(L"SystemDrive"); !drive.empty())
        for (const auto* name : {"Cavedog", "Games", "GOG Games"})
            places.programs.push_back(drive.substr(0, 2) + "\\" + name);
    return places;
}

std::string stockFolder() {
    auto folder = folderBy(L"VEXILLUM_STOCK");
    if (folder.empty())
        folder = absoluteFolder(programFolder() + "\\" VEXILLUM_STOCK_FOLDER);
    return isFolder(folder) ? folder : "";
}

void makeFolders(const std::string& folder) {
    if (isFolder(folder))
        return;
    if (const auto end = folder.rfind('\\'); end != std::string::npos)
        makeFolders(folder.substr(0, end));
    if (CreateDirectoryW(windows::wide(folder).c_str(), nullptr) == 0 &&
        GetLastError() != ERROR_ALREADY_EXISTS)
        throw Failure("mkdir", folder, windows::lastError());
}

std::string realFolder(const std::string& folder) {
    return folder;
}

} // namespace platform
