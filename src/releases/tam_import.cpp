// The conversion itself is worked out without a disk; here its steps are carried out.
#include "releases/tam_import.h"

#include "platform/failure.h"
#include "platform/relative_path.h"
#include "platform/text.h"
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
    try {
        const auto data = type == formats::TamType::ufo ? "" : game_.disk().readFile(path);
        for (const auto& step : formats::convertTam(type, path.substr(cut + 1), data, shortType)) {
            game_.log().breathe();
            if (isConverted = carryOut(step); !isConverted)
                break;
        }
    } catch (const platform::Failure& failure) {
        game_.questions().ask({std::string(formats::somethingBad), {"OK"}, 0, failure.what()});
        isConverted = false;
    }
    // What was copied until then stays.
    return commit(files) && isConverted;
}

/// Behind it all that was added is there to stay. Tells of what is not.
bool TamImport::commit(platform::WriteBatch& files) {
    bool isThere = true;
    try {
        files.commit();
        game_.disk().flush();
    } catch (const platform::Failure& failure) {
        reason_ = failure.what();
        isThere = false;
    }
    std::vector<std::string> missing;
    for (auto& added : added_) {
        if (added.note.empty() && !game_.DoesFileExist(game_.at(plainPath(added.file.substr(1)))))
            added.note = "could not be copied";
        if (added.note == "could not be copied" || !isThere)
            missing.push_back(platform::shownPath(added.file.substr(1)));
    }
    if (!missing.empty())
        game_.questions().ask(
            {"These files of the release could not be saved:\r\n\r\n" +
                 platform::shownList(missing) +
                 "\r\nPlease make room on the disk or allow writing there, remove "
                 "the release and add it once more.",
             {"OK"},
             0,
             reason_});
    return isThere;
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
        add(step.to, "could not be copied", [&] {
            game_.disk().writePieces(game_.at(releaseFolder_ + "\\" + step.to),
                                     [&](const platform::PieceSink& sink) { sink(step.text); });
        });
        return true;
    default:
        copyMember(step);
        return true;
    }
}

bool TamImport::makeReleaseFolder(const std::string& name) {
    releaseFolder_ = std::string(dataTree) + "\\" + shortType_ + "-" + folderForm(name);
    if (game_.DoesFolderExist(game_.at(releaseFolder_))) {
        game_.questions().warn("Error: A " + shortType_ + " with this name already exists.");
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
    add(step.to, isThere ? "could not be copied" : "not found", [&] {
        game_.disk().copyFile(from, to, [this](std::uint64_t /*bytes*/) { game_.log().breathe(); });
    });
}

/// Makes a file of the release; `note` is for one that cannot be made.
void TamImport::add(const std::string& name, const std::string& note,
                    const std::function<void()>& make) {
    Added added{"\\" + releaseFolder_ + "\\" + name, {}};
    try {
        make();
    } catch (const platform::Failure& failure) {
        added.note = note;
        reason_ = failure.reason();
    }
    added_.push_back(std::move(added));
}

} // namespace releases
