// The same files as cmake/install.cmake puts there, under the same rule.
#include "installation/data_tree.h"

#include <functional>

#include "platform/failure.h"
#include "releases/release_types.h"

namespace installation {
namespace {

using platform::Disk;
using platform::EntryKind;

constexpr std::string_view ownFolders[] = {"VXL-Help", "VXL-Misc", "VXL-Trlx"};
/// Its name until it is whole.
constexpr std::string_view inTheMaking = "Vexillum.new";

std::string below(const std::string& folder, std::string_view path) {
    return folder + "\\" + std::string(path);
}

/// By their paths from the folder.
void forEachFile(Disk& disk, const std::string& folder,
                 const std::function<void(const std::string& path)>& visit,
                 const std::string& path = {}) {
    const auto names = disk.list(path.empty() ? folder : below(folder, path));
    const auto prefix = path.empty() ? "" : path + "\\";
    for (const auto& name : names.files)
        visit(prefix + name);
    for (const auto& name : names.folders)
        forEachFile(disk, folder, visit, prefix + name);
}

} // namespace

bool hasGame(Disk& disk, const std::string& directory) {
    return disk.kindOf(below(directory, releases::gameProgram)) == EntryKind::file;
}

bool hasDataTree(Disk& disk, const std::string& directory) {
    return disk.kindOf(below(directory, releases::dataTree)) == EntryKind::folder;
}

void setUp(Disk& disk, const std::string& stock, const std::string& directory) {
    disk.setGameDirectory(directory);
    const auto tree = below(directory, inTheMaking);
    forEachFile(disk, stock, [&](const auto& path) {
        if (disk.kindOf(below(tree, path)) == EntryKind::none)
            disk.copyFile(below(stock, path), below(tree, path));
    });
    disk.flush();
    if (!disk.moveEntry(tree, below(directory, releases::dataTree)))
        throw platform::Failure("rename", disk.systemPath(tree),
                                std::make_error_code(std::errc::file_exists));
    disk.flush();
}

void bringUpToDate(Disk& disk, const std::string& stock, const std::string& directory) {
    disk.setGameDirectory(directory);
    const auto tree = below(directory, releases::dataTree);
    for (const auto folder : ownFolders)
        if (disk.kindOf(below(stock, folder)) == EntryKind::folder)
            forEachFile(disk, below(stock, folder), [&](const auto& path) {
                const auto from = below(below(stock, folder), path);
                const auto to = below(below(tree, folder), path);
                if (disk.kindOf(to) != EntryKind::file || !disk.holdSame(from, to))
                    disk.copyFile(from, to);
            });
}

} // namespace installation
