// Data files are read line by line: a name, a description, codes, then members in the type's own
// way.
#include "formats/tam_release.h"

#include <cstdint>
#include <limits>

#include "formats/codes.h"
#include "formats/display_name.h"
#include "formats/number.h"
#include "platform/relative_path.h"
#include "platform/text.h"

namespace formats {
namespace {

using Kind = TamStep::Kind;
using platform::replaceAll;

/// What is told where the data file ends too early.
struct Missing {
    const char* name;
    const char* description;
    const char* codes; ///< null for a type without codes
};

constexpr Missing missingOfTC = {
    "Error: TAM TC Data File does not contain a TC Name.",
    "Error: TAM TC Data File does not contain a TC Description.",
    "Error: TAM TC Data File does not contain any compatability codes."};
constexpr Missing missingOfAI = {
    "Error: TAM AI Data File does not contain an AI Name.",
    "Error: TAM AI Data File does not contain a AI Description.",
    "Error: TAM AI Data File does not contain any compatability codes."};
constexpr Missing missingOfMutator = {
    "Error: TAM Mutator Data File does not contain a Mutator Name.",
    "Error: TAM Mutator Data File does not contain a Mutator Description.",
    "Error: TAM MUT Data File does not contain any compatability codes."};
constexpr Missing missingOfUnitPack = {
    "Error: TAM Unit Pack Data File does not contain a Unit Pack Name.",
    "Error: TAM UP Data File does not contain a UP Description.", nullptr};

/// Thrown by a line that no conversion can make sense of.
struct BadLine {};

std::string withoutEnd(std::string_view text, std::size_t count) {
    if (text.size() < count)
        throw BadLine();
    return std::string(text.substr(0, text.size() - count));
}

class Conversion {
  public:
    Conversion(std::string_view fileName, std::string_view data, std::string_view shortType)
        : fileName_(fileName), lines_(platform::splitLines(data)), shortType_(shortType) {}

    void tc() {
        if (!head(missingOfTC))
            return;
        for (; hasLine(); ++next_) {
            const auto blank = line().find(' ');
            if (blank == std::string::npos)
                throw BadLine();
            copy(Kind::copy, line().substr(0, blank), line().substr(blank + 1));
        }
    }

    void ai() {
        if (!head(missingOfAI))
            return;
        for (int number = 1; hasLine(); ++next_, ++number)
            copy(Kind::copy, withoutEnd(fileName_, 3) + "(" + std::to_string(number) + ")", line());
    }

    void mutator() {
        if (!head(missingOfMutator))
            return;
        const auto stem = withoutEnd(fileName_, 4);
        if (fileName_.starts_with("}{"))
            return copySame(Kind::copy, stem + ".ccx");
        tell("You have selected a Mutator that includes a Soft Mutator.\r\n\r\nVexillum cannot yet "
             "process .sm files, so this " +
             shortType_ + " will most likely not work.");
        copySame(Kind::copy, stem + ".sm");
        const std::int64_t count = hasLine() ? numberAtStart(line()).value : 0;
        if (count < std::numeric_limits<std::int16_t>::min() ||
            count > std::numeric_limits<std::int16_t>::max())
            throw BadLine();
        for (std::int64_t number = 1; number <= count; ++number)
            copySame(Kind::copy, stem + "(" + std::to_string(number) + ").ccx");
    }

    void ufo() {
        const auto stem = withoutEnd(fileName_, 4);
        steps_.push_back({Kind::makeFolder, stem, {}, {}});
        copySame(Kind::copy, stem + ".ufo");
        copy(Kind::copyIfThere, stem + ".txt", "info.txt");
    }

    void unitPack() {
        if (!head(missingOfUnitPack))
            return;
        for (; hasLine(); ++next_) {
            copySame(Kind::copy, line() + ".ufo");
            copySame(Kind::copyIfThere, line() + ".txt");
        }
    }

    void fail() { steps_.push_back({Kind::error, std::string(somethingBad), {}, {}}); }
    std::vector<TamStep> steps() { return std::move(steps_); }

  private:
    bool hasLine() const { return next_ < lines_.size(); }
    const std::string& line() const { return lines_[next_]; }

    /// Name, description and codes. False where the file ends before them.
    bool head(const Missing& missing) {
        if (endsWith(missing.name))
            return false;
        const auto name = permittedPart(line());
        if (name != line())
            tell("Illegal characters found in name \"" + line() +
                 "\".\r\n\r\nIt has been changed to \"" + name + "\".");
        steps_.push_back({Kind::makeFolder, name, {}, {}});
        ++next_;
        if (endsWith(missing.description))
            return false;
        write("info.txt", replaceAll(lines_[next_++], "##", platform::lineBreak));
        if (missing.codes == nullptr)
            return true;
        if (endsWith(missing.codes))
            return false;
        steps_.push_back({Kind::write, codesText(lines_[next_++]), {}, "ccodes.txt"});
        return true;
    }

    bool endsWith(const char* message) {
        if (!hasLine())
            steps_.push_back({Kind::error, message, {}, {}});
        return !hasLine();
    }

    void tell(std::string text) { steps_.push_back({Kind::message, std::move(text), {}, {}}); }
    void write(std::string file, const std::string& text) {
        steps_.push_back(
            {Kind::write, text + std::string(platform::lineBreak), {}, std::move(file)});
    }
    void copySame(Kind kind, const std::string& file) { copy(kind, file, file); }
    void copy(Kind kind, const std::string& from, const std::string& to) {
        if (!staysBelow(from) || !staysBelow(to))
            throw BadLine();
        steps_.push_back({kind, {}, from, to});
    }

    std::string_view fileName_;
    std::vector<std::string> lines_;
    std::size_t next_ = 0;
    std::string shortType_;
    std::vector<TamStep> steps_;
};

} // namespace

bool staysBelow(std::string_view path) {
    auto rules = platform::PathRules::foreign();
    rules.controls = platform::PathRules::Controls::allowed;
    return path.empty() || platform::RelativePath::accepts(path, rules);
}

std::vector<TamStep> convertTam(TamType type, std::string_view fileName, std::string_view data,
                                std::string_view shortType) {
    Conversion conversion(fileName, data, shortType);
    try {
        switch (type) {
        case TamType::tc:
            conversion.tc();
            break;
        case TamType::ai:
            conversion.ai();
            break;
        case TamType::mutator:
            conversion.mutator();
            break;
        case TamType::ufo:
            conversion.ufo();
            break;
        case TamType::unitPack:
            conversion.unitPack();
            break;
        }
    } catch (const BadLine&) {
        conversion.fail();
    }
    return conversion.steps();
}

} // namespace formats
