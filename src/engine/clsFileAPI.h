// One file operation without questions: copy, move, delete or rename of one path.
#pragma once

#include <string>

#include "platform/disk.h"

namespace engine {

/// An instance serves one operation: flags, source, destination, then the operation. Failures are
/// not reported; callers that need to know look at the disk.
class clsFileAPI {
  public:
    explicit clsFileAPI(platform::Disk& disk) : disk_(disk) {}

    void SetFlags(bool useAllowUndo, bool useFilesOnly, bool useNoConfirmation, bool useSilent,
                  bool useSimpleProgress);
    unsigned flags() const { return fFlags_; }

    const std::string& SourceFile() const { return pFrom_; }
    void SourceFile(std::string newSource) { pFrom_ = std::move(newSource); }
    const std::string& DestinationFile() const { return pTo_; }
    void DestinationFile(std::string newDestination) { pTo_ = std::move(newDestination); }

    /// An argument that is not empty takes the place of the path set before. Always true.
    bool CopyFile(const std::string& FromFile = {}, const std::string& ToFile = {});
    bool DeleteFile(const std::string& FromFile = {});
    bool MoveFile(const std::string& FromFile = {}, const std::string& ToFile = {});
    bool RenameFile(const std::string& FromFile = {}, const std::string& ToFile = {});

    /// Runs while a copy goes on.
    platform::CopyProgress onProgress;

    /// Whether the last move found its source missing or its place taken.
    bool refused() const { return refused_; }

  private:
    void setPaths(const std::string& from, const std::string& to);

    platform::Disk& disk_;
    unsigned fFlags_ = 0;
    std::string pFrom_;
    std::string pTo_;
    bool refused_ = false;
};

} // namespace engine
