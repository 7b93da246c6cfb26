// File operations on the disk of the machine.
#include "engine/clsFileAPI.h"

#include "platform/failure.h"

namespace engine {

void clsFileAPI::SetFlags(bool useAllowUndo, bool useFilesOnly, bool useNoConfirmation,
                          bool useSilent, bool useSimpleProgress) {
    fFlags_ = (useAllowUndo ? 0x40U : 0U) | (useFilesOnly ? 0x80U : 0U) |
              (useNoConfirmation ? 0x10U : 0U) | (useSilent ? 0x4U : 0U) |
              (useSimpleProgress ? 0x100U : 0U);
}

void clsFileAPI::setPaths(const std::string& from, const std::string& to) {
    if (!from.empty())
        pFrom_ = from;
    if (!to.empty())
        pTo_ = to;
}

bool clsFileAPI::CopyFile(const std::string& FromFile, const std::string& ToFile) {
    setPaths(FromFile, ToFile);
    platform::attempt([&] { disk_.copyFile(pFrom_, pTo_, onProgress); });
    return true;
}

bool clsFileAPI::DeleteFile(const std::string& FromFile) {
    setPaths(FromFile, {});
    platform::attempt([&] { disk_.removeFile(pFrom_); });
    return true;
}

bool clsFileAPI::MoveFile(const std::string& FromFile, const std::string& ToFile) {
    setPaths(FromFile, ToFile);
    refused_ = false;
    platform::attempt([&] { refused_ = !disk_.moveEntry(pFrom_, pTo_); });
    return true;
}

bool clsFileAPI::RenameFile(const std::string& FromFile, const std::string& ToFile) {
    setPaths(FromFile, ToFile);
    platform::attempt([&] { disk_.renameEntry(pFrom_, pTo_.substr(pTo_.rfind('\\') + 1)); });
    return true;
}

} // namespace engine
