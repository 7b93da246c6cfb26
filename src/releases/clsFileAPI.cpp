// File operations on the disk of the machine.
#include "releases/clsFileAPI.h"

#include "platform/failure.h"

namespace releases {

void clsFileAPI::setPaths(const std::string& from, const std::string& to) {
    if (!from.empty())
        pFrom_ = from;
    if (!to.empty())
        pTo_ = to;
}

template <typename Step>
bool clsFileAPI::carryOut(Step&& step) {
    refused_ = false;
    reason_.clear();
    try {
        step();
        return !refused_;
    } catch (const platform::Failure& failure) {
        reason_ = failure.reason();
        return false;
    }
}

bool clsFileAPI::CopyFile(const std::string& FromFile, const std::string& ToFile) {
    setPaths(FromFile, ToFile);
    return carryOut([&] { disk_.copyFile(pFrom_, pTo_, onProgress); });
}

bool clsFileAPI::DeleteFile(const std::string& FromFile) {
    setPaths(FromFile, {});
    return carryOut([&] { disk_.removeFile(pFrom_); });
}

bool clsFileAPI::MoveFile(const std::string& FromFile, const std::string& ToFile) {
    setPaths(FromFile, ToFile);
    return carryOut([&] { refused_ = !disk_.moveEntry(pFrom_, pTo_); });
}

bool clsFileAPI::DoesFileExist(const std::string& FromFile) {
    setPaths(FromFile, {});
    const auto leafAt = pFrom_.rfind('\\') + 1;
    const auto leaf = std::string_view(pFrom_).substr(leafAt);
    if (leaf.empty())
        return false;
    if (leaf == "." || leaf == "..")
        return leafAt > 0 && DoesFolderExist(pFrom_.substr(0, leafAt));
    return disk_.kindOf(pFrom_) != platform::EntryKind::none;
}

bool clsFileAPI::DoesFolderExist(const std::string& FromFolder) {
    setPaths(FromFolder, {});
    auto folder = pFrom_;
    while (folder.ends_with('\\'))
        folder.pop_back();
    return !folder.empty() && disk_.kindOf(folder) == platform::EntryKind::folder;
}

} // namespace releases
