// The library's own category knows too few of Windows' numbers, and no two libraries the same.
#include "system_error.h"

#include "patience.h"
#include "system_text.h"

namespace platform::windows {
namespace {

class WindowsErrors final : public std::error_category {
  public:
    const char* name() const noexcept override { return "windows"; }

    std::string message(int error) const override {
        return messageOf(static_cast<unsigned long>(error));
    }

    std::error_condition default_error_condition(int error) const noexcept override {
        switch (static_cast<DWORD>(error)) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_BAD_NETPATH:
        // No entry has such a name; who makes one is refused ahead of the call.
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
            return std::errc::no_such_file_or_directory;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
            return std::errc::file_exists;
        case ERROR_NOT_SAME_DEVICE:
            return std::errc::cross_device_link;
        case ERROR_NOT_SUPPORTED:
        case ERROR_CALL_NOT_IMPLEMENTED:
        case ERROR_INVALID_FUNCTION:
            return std::errc::not_supported;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return std::errc::no_space_on_device;
        case ERROR_ACCESS_DENIED:
        case ERROR_CANT_ACCESS_FILE:
        case ERROR_PRIVILEGE_NOT_HELD:
            return std::errc::permission_denied;
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_BUSY:
        case ERROR_DELETE_PENDING:
        case ERROR_USER_MAPPED_FILE:
            return std::errc::device_or_resource_busy;
        case ERROR_WRITE_PROTECT:
            return std::errc::read_only_file_system;
        case ERROR_DIR_NOT_EMPTY:
            return std::errc::directory_not_empty;
        case ERROR_DIRECTORY:
            return std::errc::not_a_directory;
        case errorIsFolder:
            return std::errc::is_a_directory;
        case ERROR_FILENAME_EXCED_RANGE:
            return std::errc::filename_too_long;
        case ERROR_TOO_MANY_LINKS:
            return std::errc::too_many_links;
        case ERROR_INVALID_HANDLE:
        case ERROR_INVALID_PARAMETER:
            return std::errc::invalid_argument;
        default:
            return std::errc::io_error;
        }
    }
};

} // namespace

bool mayPass(std::error_code error) {
    return error == std::errc::device_or_resource_busy || error == codeOf(ERROR_ACCESS_DENIED);
}

std::error_code codeOf(DWORD error) {
    static const WindowsErrors category;
    return {static_cast<int>(error), category};
}

} // namespace platform::windows
