// One name for a directory, whatever links lead to it.
#include "installation/known_directories.h"

#include <algorithm>

#include "platform/failure.h"
#include "platform/text.h"
#include "platform/user_places.h"

namespace installation {
namespace {

bool isOne(const std::string& one, const std::string& other) {
    return platform::realFolder(one) == platform::realFolder(other);
}

} // namespace

std::vector<std::string> KnownDirectories::all() const {
    std::vector<std::string> directories;
    if (folder_.empty() || disk_.kindOf(file()) == platform::EntryKind::none)
        return directories;
    for (auto& line : platform::splitLines(disk_.readFile(file())))
        if (platform::absoluteFolder(line) == line &&
            std::ranges::find(directories, line) == directories.end())
            directories.push_back(std::move(line));
    return directories;
}

bool KnownDirectories::has(const std::string& directory) const {
    return std::ranges::any_of(all(), [&](const auto& each) { return isOne(each, directory); });
}

void KnownDirectories::use(const std::string& directory) {
    auto directories = all();
    if (!directories.empty() && directories.front() == directory)
        return;
    std::erase_if(directories, [&](const auto& each) { return isOne(each, directory); });
    directories.insert(directories.begin(), directory);
    write(directories);
}

void KnownDirectories::add(const std::string& directory) {
    auto directories = all();
    if (std::ranges::any_of(directories, [&](const auto& each) { return isOne(each, directory); }))
        return;
    directories.push_back(directory);
    write(directories);
}

void KnownDirectories::forget(const std::string& directory) {
    auto directories = all();
    if (std::erase_if(directories, [&](const auto& each) { return isOne(each, directory); }) > 0)
        write(directories);
}

void KnownDirectories::write(const std::vector<std::string>& directories) {
    for (const auto& directory : directories)
        if (directory.find_first_of("\r\n") != std::string::npos)
            throw platform::Failure("note", directory, "Its name has a line end in it.");
    if (folder_.empty())
        throw platform::Failure("note", directories.empty() ? "" : directories.front(),
                                "There is no home folder to note it in.");
    platform::makeFolders(folder_);
    disk_.setGameDirectory(folder_);
    disk_.replaceFile(file(), platform::joinLines(directories));
}

} // namespace installation
