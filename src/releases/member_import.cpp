// All that is to come is gathered first, so that progress is a part of a known whole, and a folder
// that is copied into itself has an end.
#include "releases/member_import.h"

#include <algorithm>

#include "formats/game_files.h"
#include "platform/failure.h"
#include "platform/text.h"
#include "platform/write_batch.h"

namespace releases {
namespace {

struct Stop {};

std::string nameOf(const std::string& path) {
    return path.substr(path.find_last_of("\\/") + 1);
}

std::string topOf(const std::string& path) {
    return path.substr(0, path.find('\\'));
}

std::string couldNotBeCopied(const std::string& file, const std::string& reason) {
    return "\"" + platform::shownPath(file) + "\" could not be copied.\r\n\r\n" + reason;
}

} // namespace

std::string belowTop(const std::string& path, const std::string& topFolder) {
    if (!path.starts_with(topFolder))
        return path == topFolder.substr(0, topFolder.find('\\')) ? "" : path;
    return path.size() > topFolder.size() ? path.substr(topFolder.size()) : "";
}

ZipContents contentsOf(formats::ZipReader& archive) {
    ZipContents contents;
    while (auto entry = archive.next()) {
        if (entry->isTrusted)
            contents.members.push_back({std::move(entry->path), entry->isFolder, entry->size});
        else
            contents.leftOut.push_back(entry->path.empty() ? "?" : std::move(entry->path));
    }
    const auto& members = contents.members;
    if (members.empty())
        return contents;
    const auto top = topOf(members.front().path);
    const bool isOnly = std::all_of(members.begin(), members.end(), [&](const Member& member) {
        return topOf(member.path) == top && (member.isFolder || member.path.size() > top.size());
    });
    // Files of the game lie below folders that it knows; its archives lie beside it.
    const bool isPart = formats::isGameFolder(top) &&
                        std::none_of(members.begin(), members.end(), [](const Member& member) {
                            return formats::isGameArchive(member.path);
                        });
    if (isOnly && !isPart)
        contents.topFolder = top + "\\";
    return contents;
}

MemberImport::MemberImport(GameDirectory& game, std::string folder, OnProgress onProgress)
    : disk_(game.disk()), questions_(game.questions()), folder_(std::move(folder)),
      onProgress_(std::move(onProgress)) {}

MemberImport::Result MemberImport::copy(const std::vector<std::string>& paths) {
    platform::attempt([&] { disk_.makeFolder(folder_); });
    try {
        for (auto path : paths) {
            while (path.size() > 1 && (path.ends_with('/') || path.ends_with('\\')))
                path.pop_back();
            plan(path, nameOf(path));
        }
        platform::WriteBatch files(disk_);
        try {
            for (const auto& source : sources_)
                carryOut(source);
        } catch (const Stop&) {
            // What has been copied stays.
        }
        commit(files);
    } catch (const Stop&) {
        // Nothing has been copied yet.
    }
    return result_;
}

/// From here on all is there to stay.
void MemberImport::commit(platform::WriteBatch& files) {
    try {
        files.commit();
        disk_.flush();
    } catch (const platform::Failure& failure) {
        bool isAnyMissing = false;
        for (const auto& [folded, path] : written_)
            if (disk_.kindOf(folder_ + "\\" + path) == platform::EntryKind::none) {
                isAnyMissing = true;
                std::erase(result_.files, path);
                tellOfFailure(path, failure.reason());
            }
        if (!isAnyMissing)
            tellOfFailure(folder_, failure.reason());
    }
}

void MemberImport::plan(const std::string& path, const std::string& target) {
    current_ = target;
    advance(0);
    switch (disk_.kindOf(path)) {
    case platform::EntryKind::none:
        return tellOfFailure(nameOf(path), "It is not there any more.");
    case platform::EntryKind::file:
        return platform::endsWithIgnoringCase(target, ".zip") ? planZip(path)
                                                              : planFile(path, target);
    default:
        break;
    }
    sources_.push_back({path, {target, true, 0}});
    try {
        for (const auto& name : disk_.folderNames(path))
            plan(path + "\\" + name, target + "\\" + name);
        // A link to a folder is listed as a file. It is not followed: it may lead round in a ring.
        for (const auto& name : disk_.fileNames(path))
            planFile(path + "\\" + name, target + "\\" + name);
    } catch (const platform::Failure& failure) {
        tellOfFailure(target, failure.reason());
    }
}

void MemberImport::planFile(const std::string& path, const std::string& target) {
    std::uint64_t size = 0;
    platform::attempt([&] { size = disk_.sizeOf(path); });
    all_ += size;
    sources_.push_back({path, {target, false, size}});
}

void MemberImport::planZip(const std::string& path) {
    try {
        formats::ZipReader archive(disk_.openFile(path));
        const auto contents = contentsOf(archive);
        for (const auto& name : contents.leftOut)
            tellOfFailure(name,
                          "Its name in \"" + nameOf(path) +
                              "\" leads out of the release's directory, or it is no plain file.");
        for (const auto& member : contents.members)
            all_ += member.size;
        sources_.push_back({path, {contents.topFolder, false, 0}, true});
    } catch (const platform::Failure& failure) {
        tellOfFailure(nameOf(path), failure.reason());
    }
}

void MemberImport::carryOut(const Source& source) {
    if (source.isArchive)
        return unpack(source.path, source.member.path);
    if (source.member.isFolder) {
        makeMemberFolder(source.member.path);
        return;
    }
    write(source.member.path, [&](const std::string& target) {
        disk_.copyFile(source.path, target, [this](std::uint64_t bytes) { advance(bytes); });
    });
}

void MemberImport::unpack(const std::string& path, const std::string& topFolder) {
    try {
        formats::ZipReader archive(disk_.openFile(path));
        while (const auto entry = archive.next()) {
            const auto member = entry->isTrusted ? belowTop(entry->path, topFolder) : "";
            if (member.empty())
                continue;
            if (entry->isFolder) {
                makeMemberFolder(member);
                continue;
            }
            write(member, [&](const std::string& target) {
                disk_.writePieces(target, [&](const platform::PieceSink& sink) {
                    archive.extract([&](std::string_view piece) {
                        sink(piece);
                        advance(piece.size());
                    });
                });
            });
        }
    } catch (const platform::Failure& failure) {
        tellOfFailure(nameOf(path), failure.reason());
    }
}

/// Folders that are there already are no failure.
void MemberImport::makeFolders(const std::string& path) {
    for (std::size_t end = 0; end != std::string::npos;) {
        end = path.find('\\', end + 1);
        const auto folder = folder_ + "\\" + path.substr(0, end);
        if (disk_.kindOf(folder) != platform::EntryKind::folder)
            disk_.makeFolder(folder);
    }
}

void MemberImport::makeMemberFolder(const std::string& path) {
    try {
        makeFolders(path);
    } catch (const platform::Failure& failure) {
        tellOfFailure(path, failure.reason());
    }
}

bool MemberImport::mayWrite(const std::string& path) {
    // What this import has written is not in its place yet.
    const bool isWritten = written_.contains(platform::foldCase(path));
    switch (isWritten ? platform::EntryKind::file : disk_.kindOf(folder_ + "\\" + path)) {
    case platform::EntryKind::none:
        return true;
    case platform::EntryKind::file:
        return questions_.ask({"\"" + platform::shownPath(path) +
                                   "\" is in the release's directory already.\r\n\r\nWould you "
                                   "like to replace it?",
                               {"Yes", "No"},
                               1},
                              &replacements_) == 0;
    default:
        ++result_.failed;
        questions_.warn(couldNotBeCopied(path, "A directory of that name is there."), &failures_);
        return false;
    }
}

void MemberImport::write(const std::string& path,
                         const std::function<void(const std::string& target)>& step) {
    current_ = platform::shownPath(path);
    advance(0);
    if (!mayWrite(path)) {
        ++result_.leftOut;
        return;
    }
    try {
        if (const auto cut = path.rfind('\\'); cut != std::string::npos)
            makeFolders(path.substr(0, cut));
        const auto folded = platform::foldCase(path);
        // What came under another spelling of the name waits under that one.
        const auto earlier = written_.find(folded);
        step(folder_ + "\\" + (earlier == written_.end() ? path : earlier->second));
        if (written_.emplace(folded, path).second)
            result_.files.push_back(path);
    } catch (const platform::Failure& failure) {
        tellOfFailure(path, failure.reason());
    }
}

void MemberImport::advance(std::uint64_t bytes) {
    done_ = std::min(done_ + bytes, all_);
    const auto part = all_ == 0 ? 0.0 : static_cast<double>(done_) / static_cast<double>(all_);
    if (!onProgress_({current_, static_cast<int>(part * whole)}))
        throw Stop();
}

void MemberImport::tellOfFailure(const std::string& file, const std::string& reason) {
    ++result_.leftOut;
    ++result_.failed;
    questions_.warn(couldNotBeCopied(file, reason), &failures_);
}

} // namespace releases
