// One file operation without questions: copy, move or delete of one path.
#pragma once

#include <string>

#include "platform/disk.h"

namespace releases {

/// An instance serves one operation. A failure is not thrown but kept: `refused` and `reason` tell
/// how the operation went.
class clsFileAPI {
  public:
    explicit clsFileAPI(platform::Disk& disk) : disk_(disk) {}

    const std::string& SourceFile() const { return pFrom_; }
    void SourceFile(std::string newSource) { pFrom_ = std::move(newSource); }
    const std::string& DestinationFile() const { return pTo_; }
    void DestinationFile(std::string newDestination) { pTo_ = std::move(newDestination); }

    /// An argument that is not empty takes the place of the path set before. False after a failure,
    /// and for a move that was refused. A copy replaces a file at its destination, a move nothing;
    /// both make missing folders there.
    bool CopyFile(const std::string& FromFile = {}, const std::string& ToFile = {});
    bool DeleteFile(const std::string& FromFile = {});
    bool MoveFile(const std::string& FromFile = {}, const std::string& ToFile = {});

    /// A folder is there too, to the file test. What cannot be looked at is not there.
    bool DoesFileExist(const std::string& FromFile = {});
    bool DoesFolderExist(const std::string& FromFolder = {});

    /// Runs while a copy goes on, with the bytes copied since the last time.
    platform::CopyProgress onProgress;

    /// Whether the last move found its source missing or its place taken.
    bool refused() const { return refused_; }
    /// Why the last operation failed, in the system's words; empty where it did not fail.
    const std::string& reason() const { return reason_; }

  private:
    void setPaths(const std::string& from, const std::string& to);
    template <typename Step>
    bool carryOut(Step&& step);

    platform::Disk& disk_;
    std::string pFrom_;
    std::string pTo_;
    bool refused_ = false;
    std::string reason_;
};

} // namespace releases
