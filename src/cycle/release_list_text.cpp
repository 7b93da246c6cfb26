// A line for each release, with a line for each of its files below it, and a last line by which a
// list that was cut off shows.
#include <algorithm>
#include <charconv>
#include <set>

#include "cycle/release_list.h"
#include "formats/checksum.h"
#include "platform/failure.h"
#include "platform/relative_path.h"
#include "platform/text.h"

namespace cycle {
namespace {

constexpr std::string_view firstLine = "Vexillum Release List";
constexpr std::string_view remarks =
    "# The releases that somebody plays with. Below each: the size of a file, its checksum, and\n"
    "# where it goes. \"Sets, Compare With A List\" holds the list against your own releases.\n";
constexpr std::string_view lastLine = "End";
constexpr std::string_view margin = "    ";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t longest = 32U << 20; ///< bytes

/// The word up to the next blank, which is cut off with it.
std::string_view cutWord(std::string_view& line) {
    const auto end = std::min(line.find(' '), line.size());
    const auto word = line.substr(0, end);
    line.remove_prefix(std::min(end + 1, line.size()));
    return word;
}

class ListReader {
  public:
    /// Why a text is no list.
    std::string read(std::string_view text) {
        if (text.starts_with(byteOrderMark))
            text.remove_prefix(byteOrderMark.size());
        if (text.size() > longest)
            return "It is too large for a list of releases.";
        const auto lines = platform::splitLines(text);
        if (lines.empty() || lines.front() != firstLine)
            return "It is no list of releases: its first line is not \"" + std::string(firstLine) +
                   "\".";
        for (std::size_t at = 1; at < lines.size(); ++at) {
            const std::string_view line = lines[at];
            if (line == lastLine)
                return {};
            const auto reason = line.empty() || line.starts_with('#') ? ""
                                : line.starts_with(margin) ? takeFile(line.substr(margin.size()))
                                                           : takeRelease(line);
            if (*reason != '\0')
                return "Line " + std::to_string(at + 1) + " " + reason + ".";
        }
        return "It breaks off: its last line is not \"" + std::string(lastLine) + "\".";
    }

    ReleaseList take() { return std::move(list_); }

  private:
    const char* takeRelease(std::string_view line) {
        const auto release = readOwner(line);
        if (!release)
            return "names no release";
        if (!platform::isPlainName(releases::folderForm(release->name)))
            return "has a name that no release can have";
        if (!releases_.insert({release->type, platform::foldCase(release->name)}).second)
            return "names a release once more";
        files_.clear();
        list_.push_back({*release, {}});
        return "";
    }

    const char* takeFile(std::string_view line) {
        if (list_.empty())
            return "names a file of no release";
        const auto size = cutWord(line);
        const auto checksum = formats::readChecksum(cutWord(line));
        ListedFile file;
        const auto number = std::from_chars(size.data(), size.data() + size.size(), file.size);
        if (number.ec != std::errc() || number.ptr != size.data() + size.size() || !checksum)
            return "has no size and checksum";
        const auto path = platform::RelativePath::parse(line);
        if (!path)
            return "names a file that no release can have";
        file.checksum = *checksum;
        file.path = path->text();
        if (!files_.insert(platform::foldCase(file.path)).second)
            return "names a file once more";
        list_.back().files.push_back(std::move(file));
        return "";
    }

    ReleaseList list_;
    std::set<Owner> releases_;    ///< case folded
    std::set<std::string> files_; ///< of the release at hand, case folded
};

void tell(std::string& text, const std::vector<std::string>& paths, const char* what) {
    for (const auto& path : paths)
        text += std::string(margin) + platform::shownPath(path) + what + "\n";
}

} // namespace

std::string textOf(const ReleaseList& list) {
    std::string text = std::string(firstLine) + "\n" + std::string(remarks);
    for (const auto& listed : list) {
        text += listed.release.text() + "\n";
        for (const auto& file : listed.files)
            text += std::string(margin) + std::to_string(file.size) + " " +
                    formats::checksumText(file.checksum) + " " +
                    platform::replaceAll(file.path, "\\", "/") + "\n";
    }
    return platform::withLineBreaks(text + std::string(lastLine) + "\n");
}

std::string readReleaseList(std::string_view text, ReleaseList& list) {
    ListReader reader;
    auto reason = reader.read(text);
    if (reason.empty())
        list = reader.take();
    return reason;
}

std::string readReleaseListFile(const releases::GameDirectory& game, const std::string& path,
                                ReleaseList& list) {
    try {
        // What is too large is not to be read first.
        return readReleaseList(game.disk().sizeOf(path) > longest ? std::string(longest + 1, ' ')
                                                                  : game.disk().readFile(path),
                               list);
    } catch (const platform::Failure& failure) {
        return platform::shownPath(path) + ": " + failure.reason();
    }
}

std::string ListComparison::text() const {
    std::string text;
    if (!missing.empty())
        text += "These releases are missing here:\n\n";
    for (const auto& release : missing)
        text += std::string(margin) + release.text() + "\n";
    if (!otherVersions.empty())
        text +=
            std::string(text.empty() ? "" : "\n") + "These releases are here in another version:\n";
    for (const auto& other : otherVersions) {
        text += "\n" + other.release.text() + "\n";
        tell(text, other.missing, " is missing here");
        tell(text, other.different, " is another file here");
        tell(text, other.notListed, " is not in the list");
    }
    const bool isAll = text.empty();
    text += std::string(isAll ? "" : "\n") + platform::withSeparators(same) +
            (same == 1 ? " release is" : " releases are") + " here as in the list" +
            (isAll ? ", and nothing is missing." : ".") + "\n";
    return platform::withLineBreaks(text);
}

} // namespace cycle
