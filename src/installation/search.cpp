// The places stand in a table, where "*" is any folder. They are searched level by level, so that a
// limit cuts off what lies deep.
#include "installation/search.h"

#include <algorithm>
#include <utility>

#include "installation/data_tree.h"
#include "platform/failure.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "releases/release_types.h"

namespace installation {
namespace {

struct Place {
    std::string_view path; ///< below the folder that its table is for
    int depth = 0;         ///< how many levels below it are looked at
};

/// Of a prefix the drive is searched, never the whole of it: that leads back out by links.
constexpr int driveDepth = 5;

constexpr Place placesAtHome[] = {
    {".wine\\drive_c", driveDepth},
    {".local\\share\\bottles\\bottles\\*\\drive_c", driveDepth},
    {".var\\app\\com.usebottles.bottles\\data\\bottles\\bottles\\*\\drive_c", driveDepth},
    {".PlayOnLinux\\wineprefix\\*\\drive_c", driveDepth},
    {".local\\share\\lutris\\runners\\winesteam\\*\\drive_c", driveDepth},
    {".local\\share\\Steam\\steamapps\\common", 2},
    {".local\\share\\Steam\\steamapps\\compatdata\\*\\pfx\\drive_c", driveDepth},
    {".steam\\steam\\steamapps\\common", 2},
    {".steam\\debian-installation\\steamapps\\common", 2},
    {".var\\app\\com.valvesoftware.Steam\\.local\\share\\Steam\\steamapps\\common", 2},
    {"Games", 3},
    {"Games\\*\\drive_c", driveDepth},
    {"Games\\Heroic\\Prefixes\\*\\drive_c", driveDepth},
    {"Games\\Heroic\\Prefixes\\default\\*\\drive_c", driveDepth},
    {"GOG Games", 3},
    {"", 1},
};

constexpr std::string_view wineFolders[] = {"windows", "proc", "dosdevices"};

class Search {
  public:
    Search(platform::Disk& disk, const SearchLimits& limits)
        : disk_(disk), limit_(limits.folders),
          end_(std::chrono::steady_clock::now() + limits.time) {}

    void lookAt(const std::string& root, std::string_view path, int depth) {
        if (root.empty())
            return;
        left_ = limit_;
        for (const auto& folder : spelledOut(root, platform::splitPath(path)))
            lookBelow(folder, depth);
    }

    std::vector<std::string> take() { return std::move(found_); }

  private:
    bool mayGoOn() {
        if (left_ == 0 || std::chrono::steady_clock::now() >= end_)
            return false;
        --left_;
        return true;
    }

    std::vector<std::string> foldersIn(const std::string& folder) {
        std::vector<std::string> names;
        platform::attempt([&] { names = disk_.folderNames(folder); });
        return names;
    }

    std::vector<std::string> spelledOut(const std::string& root,
                                        const std::vector<std::string>& parts) {
        std::vector<std::string> folders = {root};
        for (const auto& part : parts) {
            std::vector<std::string> next;
            for (const auto& folder : folders)
                if (part != "*")
                    next.push_back(folder + "\\" + part);
                else if (mayGoOn())
                    for (const auto& name : foldersIn(folder))
                        next.push_back(folder + "\\" + name);
            std::erase_if(next, [&](const auto& folder) {
                return disk_.kindOf(folder) != platform::EntryKind::folder;
            });
            folders = std::move(next);
        }
        return folders;
    }

    void lookBelow(const std::string& top, int depth) {
        std::vector<std::string> level = {top};
        for (; !level.empty(); --depth) {
            std::vector<std::string> next;
            for (const auto& folder : level) {
                if (!mayGoOn())
                    return;
                if (hasGame(disk_, folder)) {
                    add(folder);
                    continue;
                }
                if (depth == 0)
                    continue;
                for (const auto& name : foldersIn(folder))
                    if (isWorthALook(folder, name))
                        next.push_back(folder + "\\" + name);
            }
            level = std::move(next);
        }
    }

    bool isWorthALook(const std::string& folder, const std::string& name) {
        return !name.starts_with('.') &&
               std::ranges::none_of(
                   wineFolders,
                   [&](auto each) { return platform::equalIgnoringCase(each, name); }) &&
               !platform::equalIgnoringCase(name, releases::dataTree) &&
               !disk_.leadsThroughLink(folder, name);
    }

    void add(const std::string& folder) {
        auto real = platform::realFolder(disk_.systemPath(folder));
        if (std::ranges::find(found_, real) == found_.end())
            found_.push_back(std::move(real));
    }

    platform::Disk& disk_;
    std::size_t limit_;
    std::size_t left_ = 0;
    std::chrono::steady_clock::time_point end_;
    std::vector<std::string> found_;
};

} // namespace

std::vector<std::string> findDirectories(platform::Disk& disk, const platform::UserPlaces& places,
                                         const SearchLimits& limits) {
    Search search(disk, limits);
    search.lookAt(places.current, "", 0);
    search.lookAt(places.winePrefix, "drive_c", driveDepth);
    search.lookAt(places.data, "wineprefixes\\*\\drive_c", driveDepth);
    for (const auto& [path, depth] : placesAtHome)
        search.lookAt(places.home, path, depth);
    for (const auto& folder : places.programs)
        search.lookAt(folder, "", 3);
    return search.take();
}

std::vector<std::string> findBelow(platform::Disk& disk, const std::string& folder,
                                   const SearchLimits& limits) {
    Search search(disk, limits);
    search.lookAt(folder, "", driveDepth);
    search.lookAt(folder, "drive_c", driveDepth);
    return search.take();
}

} // namespace installation
