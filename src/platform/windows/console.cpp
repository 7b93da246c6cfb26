// A program with windows is started without a console, though its caller may have one.
#include "platform/console.h"

#include <cstdio>

#include <windows.h>

namespace platform {
namespace {

void reach(DWORD which, std::FILE* stream) {
    const HANDLE handle = GetStdHandle(which);
    const bool leadsSomewhere = handle != nullptr && handle != INVALID_HANDLE_VALUE &&
                                GetFileType(handle) != FILE_TYPE_UNKNOWN;
    if (!leadsSomewhere)
        static_cast<void>(std::freopen("CONOUT$", "w", stream));
}

} // namespace

void useConsoleOfCaller() {
    if (AttachConsole(ATTACH_PARENT_PROCESS) == 0)
        return;
    SetConsoleOutputCP(CP_UTF8);
    reach(STD_OUTPUT_HANDLE, stdout);
    reach(STD_ERROR_HANDLE, stderr);
}

} // namespace platform
