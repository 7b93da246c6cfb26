// The calls of the systems that tests need.
#include "support/system.h"

#include <algorithm>

#include "platform/text.h"

#ifdef _WIN32
#include <array>
#include <fstream>
#include <utility>

#include <windows.h>
#else
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace test {

namespace fs = std::filesystem;

namespace {

constexpr auto memoryFolder = "/dev/shm";
#ifdef _WIN32
constexpr DWORD errorIsFolder = 336; // ERROR_DIRECTORY_NOT_SUPPORTED, which not every header names
#endif

} // namespace

#ifdef _WIN32

namespace {

/// What the system calls what POSIX has other words for.
const std::pair<DWORD, const char*> words[] = {
    {ERROR_FILE_NOT_FOUND, "No such file or directory"},
    {ERROR_PATH_NOT_FOUND, "No such file or directory"},
    {ERROR_DIRECTORY, "Not a directory"},
    {errorIsFolder, "Is a directory"},
    {ERROR_CANT_ACCESS_FILE, "Permission denied"},
    {ERROR_ACCESS_DENIED, "Permission denied"},
};

std::string wordsOf(DWORD error) {
    std::array<char, 512> text{};
    const auto size =
        FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                       0, text.data(), static_cast<DWORD>(text.size()), nullptr);
    std::string said(text.data(), size);
    said.erase(said.find_last_not_of("\r\n ") + 1);
    return said.empty() ? "error " + std::to_string(error) : said;
}

} // namespace

fs::path temporaryFolder() {
    std::error_code error;
    // A layer over another system may show that one's folder in memory.
    return fs::is_directory(memoryFolder, error) ? fs::absolute(memoryFolder)
                                                 : fs::temp_directory_path();
}

fs::path otherTemporaryFolder() {
    std::error_code error;
    return fs::is_directory("/tmp", error) ? fs::absolute("/tmp") : fs::temp_directory_path();
}

bool lieOnOneDisk(const fs::path& one, const fs::path& other) {
    const auto name = "vexillum-probe-" + std::to_string(processNumber());
    std::ofstream(one / name) << name;
    const bool isMoved = MoveFileExW((one / name).c_str(), (other / name).c_str(), 0) != 0;
    fs::remove((isMoved ? other : one) / name);
    return isMoved;
}

std::string wholeDisk(const fs::path& path) {
    return path.root_name().string();
}

std::string belowWholeDisk(const fs::path& path) {
    return fs::path(path).make_preferred().string();
}

unsigned long processNumber() {
    return GetCurrentProcessId();
}

std::string shown(std::string path) {
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

std::string inPosixWords(std::string text) {
    for (const auto& [error, posix] : words)
        text = platform::replaceAll(text, wordsOf(error), posix);
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

fs::path pathOf(std::string_view bytes) {
    return {std::u8string(bytes.begin(), bytes.end())};
}

void removeAll(const fs::path& path) {
    std::error_code ignored;
    for (const auto& entry : fs::recursive_directory_iterator(path, ignored))
        setReadOnly(entry.path(), false);
    fs::remove_all(path, ignored);
}

bool makeLink(const fs::path& target, const fs::path& link) {
    const DWORD kind =
        fs::is_directory(link.parent_path() / target) ? DWORD{SYMBOLIC_LINK_FLAG_DIRECTORY} : 0U;
    constexpr DWORD withoutRights = 2; // SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE
    // Not every layer over another system does what it says it did.
    return CreateSymbolicLinkW(link.c_str(), target.c_str(), kind | withoutRights) != 0 &&
           GetFileAttributesW(link.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool makePipe(const fs::path& /*path*/) {
    return false;
}

bool giveAway(const fs::path& /*path*/, unsigned /*owner*/, unsigned /*group*/) {
    return false;
}

bool belongsTo(const fs::path& /*path*/, unsigned /*owner*/, unsigned /*group*/) {
    return false;
}

void hideIfDotted(const fs::path& path) {
    if (path.filename().wstring().starts_with(L'.'))
        SetFileAttributesW(path.c_str(), GetFileAttributesW(path.c_str()) | FILE_ATTRIBUTE_HIDDEN);
}

void setReadOnly(const fs::path& path, bool isReadOnly) {
    const auto attributes = GetFileAttributesW(path.c_str());
    SetFileAttributesW(path.c_str(), isReadOnly ? attributes | FILE_ATTRIBUTE_READONLY
                                                : attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
}

bool isReadOnly(const fs::path& path) {
    return (GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_READONLY) != 0;
}

fs::path sleeper() {
    std::array<wchar_t, MAX_PATH> own{};
    GetModuleFileNameW(nullptr, own.data(), MAX_PATH);
    return fs::path(own.data()).parent_path() / "test-sleeper.exe";
}

#else

fs::path temporaryFolder() {
    return ::access(memoryFolder, W_OK) == 0 ? fs::path(memoryFolder) : fs::temp_directory_path();
}

bool lieOnOneDisk(const fs::path& one, const fs::path& other) {
    struct stat first {};
    struct stat second {};
    return ::stat(one.c_str(), &first) == 0 && ::stat(other.c_str(), &second) == 0 &&
           first.st_dev == second.st_dev;
}

fs::path otherTemporaryFolder() {
    return fs::temp_directory_path();
}

std::string wholeDisk(const fs::path& /*path*/) {
    return "/";
}

std::string belowWholeDisk(const fs::path& path) {
    return "/" + platform::replaceAll(path.string(), "/", "\\");
}

unsigned long processNumber() {
    return static_cast<unsigned long>(::getpid());
}

std::string shown(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

std::string inPosixWords(std::string text) {
    return text;
}

fs::path pathOf(std::string_view bytes) {
    return bytes;
}

void removeAll(const fs::path& path) {
    std::error_code ignored;
    fs::remove_all(path, ignored);
}

bool makeLink(const fs::path& target, const fs::path& link) {
    std::error_code error;
    fs::create_symlink(target, link, error);
    return !error;
}

bool makePipe(const fs::path& path) {
    return ::mkfifo(path.c_str(), S_IRUSR | S_IWUSR) == 0;
}

bool giveAway(const fs::path& path, unsigned owner, unsigned group) {
    return ::geteuid() == 0 && ::chown(path.c_str(), owner, group) == 0;
}

bool belongsTo(const fs::path& path, unsigned owner, unsigned group) {
    struct stat found {};
    return ::stat(path.c_str(), &found) == 0 && found.st_uid == owner && found.st_gid == group;
}

void hideIfDotted(const fs::path& /*path*/) {}

void setReadOnly(const fs::path& path, bool isReadOnly) {
    constexpr auto writing =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(path, writing, isReadOnly ? fs::perm_options::remove : fs::perm_options::add);
}

bool isReadOnly(const fs::path& path) {
    return (fs::status(path).permissions() & fs::perms::owner_write) == fs::perms::none;
}

fs::path sleeper() {
    return fs::read_symlink("/proc/self/exe").parent_path() / "test-sleeper";
}

#endif

} // namespace test
