// Files are those that a launch would move: what else lies in a release's folder is its owner's.
#include "cycle/release_list.h"

#include <algorithm>
#include <map>

#include "cycle/plan.h"
#include "formats/checksum.h"
#include "platform/failure.h"
#include "platform/relative_path.h"
#include "platform/text.h"
#include "spellings.h"

namespace cycle {
namespace {

/// A file of a release on the disk.
struct FileHere {
    std::string path; ///< where a launch lays it
    std::string at;   ///< where it lies now, absolute
};

/// In the order of listings. Without a folder it is a loose file.
std::vector<FileHere> filesOf(const releases::GameDirectory& game, const releases::Store& store,
                              const Owner& release) {
    std::vector<FileHere> files;
    const auto folder = store.folderOf(release.type, release.name);
    const auto take = [&](const platform::FolderNames& names, const std::string& start) {
        for (const auto& file : names.files)
            // A name that no list can hold cannot be compared either.
            if (!isDocumentation(file, start.empty()) &&
                platform::RelativePath::accepts(start + file))
                files.push_back({start + file, folder + "\\" + start + file});
    };
    const auto root = game.list(folder);
    if (!root) {
        const auto file = releases::folderForm(release.name);
        files.push_back({file, store.shownFolderOf(release.type, release.name) + "\\" + file});
        return files;
    }
    take(*root, "");
    for (const auto& sub : root->folders)
        if (const auto names = game.list(folder + "\\" + sub))
            take(*names, sub + "\\");
    return files;
}

std::uint32_t checksumOfFile(const releases::GameDirectory& game, const std::string& path) {
    constexpr std::size_t pieceSize = 1U << 20;
    const auto file = game.disk().openFile(path);
    std::string piece(pieceSize, '\0');
    std::uint32_t checksum = 0;
    for (;;) {
        game.log().breathe();
        const auto count =
            file->read({reinterpret_cast<std::uint8_t*>(piece.data()), piece.size()});
        if (count == 0)
            return checksum;
        checksum = formats::checksumOf(std::string_view(piece).substr(0, count), checksum);
    }
}

bool isAsListed(const releases::GameDirectory& game, const ListedFile& listed,
                const std::string& at) {
    return game.disk().sizeOf(at) == listed.size && checksumOfFile(game, at) == listed.checksum;
}

ListComparison::OtherVersion differences(const ListedRelease& listed, const Owner& release,
                                         const releases::GameDirectory& game,
                                         const releases::Store& store) {
    ListComparison::OtherVersion found{listed.release, {}, {}, {}};
    std::map<std::string, FileHere> here;
    for (auto& file : filesOf(game, store, release))
        here.emplace(platform::foldCase(file.path), std::move(file));
    for (const auto& file : listed.files) {
        const auto mine = here.extract(platform::foldCase(file.path));
        if (mine.empty())
            found.missing.push_back(file.path);
        else if (!isAsListed(game, file, mine.mapped().at))
            found.different.push_back(file.path);
    }
    for (const auto& [folded, file] : here)
        found.notListed.push_back(file.path);
    return found;
}

} // namespace

ReleaseList listReleases(const releases::GameDirectory& game, const releases::Store& store,
                         const Selection& selection) {
    ReleaseList list;
    Spellings spellings(store);
    for (const auto& info : releases::releaseTypes())
        for (const auto& name : selection.namesOf(info.type)) {
            Owner release{info.type, info.isSingle() ? releases::displayForm(name) : name};
            const auto here = spellings.here(release);
            if (!here || !platform::isPlainName(releases::folderForm(*here)) ||
                (info.isSingle() && release.name == info.defaultName))
                continue;
            release.name = *here;
            if (std::any_of(list.begin(), list.end(),
                            [&](const auto& listed) { return listed.release == release; }))
                continue;
            list.push_back({release, {}});
            for (const auto& file : filesOf(game, store, release))
                list.back().files.push_back(
                    {file.path, game.disk().sizeOf(file.at), checksumOfFile(game, file.at)});
        }
    return list;
}

ListComparison compare(const ReleaseList& list, const releases::GameDirectory& game,
                       const releases::Store& store) {
    ListComparison result;
    Spellings spellings(store);
    for (const auto& listed : list) {
        const auto here = spellings.here(listed.release);
        if (!here) {
            result.missing.push_back(listed.release);
            continue;
        }
        auto other = differences(listed, {listed.release.type, *here}, game, store);
        if (other.missing.empty() && other.different.empty() && other.notListed.empty())
            ++result.same;
        else
            result.otherVersions.push_back(std::move(other));
    }
    return result;
}

} // namespace cycle
