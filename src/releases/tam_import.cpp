// The conversion itself is worked out without a disk; here its steps are carried out.
#include "releases/tam_import.h"

#include "platform/failure.h"
#include "platform/relative_path.h"
#include "platform/write_batch.h"
#include "releases/release_types.h"

namespace releases {
namespace {

/// With one kind of separator, and without parts that name the folder itself.
std::string plainPath(const std::string& path) {
    const auto plain = platform::RelativePath::parse(path);
    return plain ? plain->text() : std::string();
}

} // namespace

bool TamImport::convert(formats::TamType type, const std::string& path,
                        const std::string& shortType) {
    added_.clear();
    shortType_ = shortType;
    const auto cut = path.find_last_of("\\/");
    dataFolder_ = path.substr(0, cut);
    platform::WriteBatch files(game_.disk());
    bool isConverted = true;
    const auto step = [&](auto&& work) {
        if (platform::attempt(work))
            return;
        game_.questions().tell(std::string(formats::somethingBad));
        isConverted = false;
    };
    step([&] {
        const auto data = type == formats::TamType::ufo ? "" : game_.disk().readFile(path);
        for (const auto& each : formats::convertTam(type, path.substr(cut + 1), data, shortType)) {
            game_.log().breathe();
            if (isConverted = carryOut(each); !isConverted)
                return;
        }
    });
    // What was copied until then stays.
    step([&] {
        files.commit();
        game_.disk().flush();
    });
    return isConverted;
}

/// False where the conversion has failed and the user has been told.
bool TamImport::carryOut(const formats::TamStep& step) {
    using Kind = formats::TamStep::Kind;
    switch (step.kind) {
    case Kind::message:
    case Kind::error:
        game_.questions().tell(step.text);
        return step.kind == Kind::message;
    case Kind::makeFolder:
        return makeReleaseFolder(step.text);
    case Kind::write:
        game_.disk().writeFile(game_.at(releaseFolder_ + "\\" + step.to), step.text);
        added_.push_back({"\\" + releaseFolder_ + "\\" + step.to, {}});
        return true;
    default:
        copyMember(step);
        return true;
    }
}

bool TamImport::makeReleaseFolder(const std::string& name) {
    releaseFolder_ = std::string(dataTree) + "\\" + shortType_ + "-" + folderForm(name);
    if (game_.DoesFolderExist(game_.at(releaseFolder_))) {
        game_.questions().tell("Error: A " + shortType_ + " with this name already exists.");
        return false;
    }
    game_.disk().makeFolder(game_.at(releaseFolder_));
    return true;
}

/// A member that is not there is no failure. One behind a link lies outside the folder.
void TamImport::copyMember(const formats::TamStep& step) {
    if (game_.disk().leadsThroughLink(dataFolder_, plainPath(step.from)))
        throw platform::Failure("copy", step.from, "a link leads to it");
    const auto from = dataFolder_ + "\\" + plainPath(step.from);
    const bool isThere = game_.DoesFileExist(from);
    if (!isThere && step.kind == formats::TamStep::Kind::copyIfThere)
        return;
    const auto to = game_.at(releaseFolder_ + "\\" + plainPath(step.to));
    const char* failed = game_.CopyFile(from, to) ? "" : "could not be copied";
    added_.push_back({"\\" + releaseFolder_ + "\\" + step.to, isThere ? failed : "not found"});
}

} // namespace releases
