// What differs between the systems for tests alone.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace test {

#ifdef _WIN32
inline constexpr bool onWindows = true;
#else
inline constexpr bool onWindows = false;
#endif

/// Names that differ in case alone are two names. Where not, such a pair cannot be laid out.
inline constexpr bool tellsCaseApart = !onWindows;

/// In memory where the system has such a folder: the program syncs often.
std::filesystem::path temporaryFolder();
/// One on another disk than that, if there is another.
std::filesystem::path otherTemporaryFolder();
/// Looks by a move, so both must be writable.
bool lieOnOneDisk(const std::filesystem::path& one, const std::filesystem::path& other);

/// A game directory that holds all of the disk, or drive, of a path, and the path below it.
std::string wholeDisk(const std::filesystem::path& path);
std::string belowWholeDisk(const std::filesystem::path& path);

unsigned long processNumber();

/// A path out of the bytes that the program has for it.
std::filesystem::path pathOf(std::string_view bytes);
/// With everything in it, also what is locked against writing.
void removeAll(const std::filesystem::path& path);

/// A path as people see it.
std::string shown(std::string path);
/// A text with the system's own words for failures, and its separators, in those of POSIX.
std::string inPosixWords(std::string text);

/// False where the system, or this user, cannot make such an entry or change.
bool makeLink(const std::filesystem::path& target, const std::filesystem::path& link);
bool makePipe(const std::filesystem::path& path);
bool giveAway(const std::filesystem::path& path, unsigned owner, unsigned group);
bool belongsTo(const std::filesystem::path& path, unsigned owner, unsigned group);

/// Where a dot at the head of a name hides nothing, a mark does.
void hideIfDotted(const std::filesystem::path& path);

/// Locked against writing, or open again.
void setReadOnly(const std::filesystem::path& path, bool isReadOnly);
bool isReadOnly(const std::filesystem::path& path);

/// A program that runs for as many seconds as its first argument says.
std::filesystem::path sleeper();

} // namespace test
