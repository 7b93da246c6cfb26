// Copies what the user has at hand into a release's folder: files, folders, and what is in zip
// archives.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "formats/zip.h"
#include "platform/write_batch.h"
#include "releases/game_directory.h"

namespace releases {

/// One file or folder to come, by its path below the release's folder. The size, in bytes, is what
/// its source claims.
struct Member {
    std::string path;
    bool isFolder = false;
    std::uint64_t size = 0;
};

/// What an archive brings, in the order of its entries. All of `members` may be followed below the
/// release's folder.
struct ZipContents {
    std::vector<Member> members;
    std::vector<std::string> leftOut; ///< names that cannot be trusted
    /// The one top folder that holds everything else and is not to be made, with a backslash behind
    /// it; empty where there is none.
    std::string topFolder;
};

/// Goes through the whole archive, which has nothing left to give then. Throws Failure if it is no
/// zip archive or a damaged one.
ZipContents contentsOf(formats::ZipReader& archive);

/// The path of an entry without the top folder; empty for that folder itself.
std::string belowTop(const std::string& path, const std::string& topFolder);

/// One import: an object serves one call of `copy`. What has been copied stays, however it ends.
class MemberImport {
  public:
    static constexpr int whole = 1000;
    /// The file at hand, and the share of all bytes that has come.
    struct Progress {
        std::string file;
        int done = 0; ///< of `whole`
    };
    /// False stops the copying at once; the file at hand is not kept.
    using OnProgress = std::function<bool(const Progress&)>;

    /// Numbers of files; an archive that cannot be read counts as one.
    struct Result {
        std::vector<std::string> files; ///< those that were copied, below the release's folder
        int copied() const { return static_cast<int>(files.size()); }
        int leftOut = 0; ///< all that was not copied
        int failed = 0;  ///< those of them that the user did not decline
    };

    /// Into a release's folder, by its absolute path.
    MemberImport(GameDirectory& game, std::string folder, OnProgress onProgress);

    /// Copies files and folders, by paths in the system's form, and unpacks archives whose names
    /// end in ".zip". Nothing is replaced unless the user says so. What cannot be copied is told
    /// of, and the rest goes on.
    Result copy(const std::vector<std::string>& paths);

  private:
    struct Source {
        std::string path; ///< of a file, a folder or an archive
        Member member;    ///< of an archive the path is its top folder
        bool isArchive = false;
    };

    void plan(const std::string& path, const std::string& target);
    void planFile(const std::string& path, const std::string& target);
    void planZip(const std::string& path);
    void carryOut(const Source& source);
    void unpack(const std::string& path, const std::string& topFolder);
    void makeFolders(const std::string& path);
    void makeMemberFolder(const std::string& path);
    void commit(platform::WriteBatch& files);
    bool mayWrite(const std::string& path);
    /// Runs a step for a file, tells of its failure. Throws Stop where the user has had enough.
    void write(const std::string& path, const std::function<void(const std::string& target)>& step);
    void advance(std::uint64_t bytes);
    void tellOfFailure(const std::string& file, const std::string& reason);

    platform::Disk& disk_;
    platform::Questions& questions_;
    std::string folder_;
    OnProgress onProgress_;
    std::vector<Source> sources_;
    platform::MessageRow replacements_ = platform::MessageRow::withoutLog();
    std::map<std::string, std::string> written_; ///< by their folded paths
    platform::MessageRow failures_ = platform::MessageRow::withoutLog();
    std::string current_;
    std::uint64_t all_ = 0;
    std::uint64_t done_ = 0;
    Result result_;
};

} // namespace releases
