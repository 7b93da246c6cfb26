// The one decision on which names may be followed below a folder, whoever wrote them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// What differs between the sources of names. Whatever the rules, a path is refused that is empty,
/// absolute or below a drive, that has a part ".." or a NUL, or on Windows a colon.
struct PathRules {
    enum class Slash {
        leadsAway, ///< only backslashes part a name: a part with a slash would be several
        separates  ///< slash and backslash part a name
    };
    enum class Dot { refused, dropped };
    enum class Controls { allowed, refused };

    Slash slash = Slash::separates;
    Dot dot = Dot::dropped;
    Controls controls = Controls::refused;
    std::size_t longest = 1000; ///< bytes of the path as it comes out

    /// Names out of archives, data files and the like, which nobody has looked at.
    static PathRules foreign() { return {}; }

    /// Paths of the program's own, as they stand in journals. A drive counts only ahead of more
    /// parts: where drives are unknown, "a:" is a name like any other.
    static PathRules own() {
        return {Slash::leadsAway, Dot::refused, Controls::allowed, std::string_view::npos};
    }
};

/// A path that stays below the folder it is looked for in. It has at least one part, and none of
/// them is empty.
class RelativePath {
  public:
    /// Nothing for a text that is refused. Looks at the text alone: an entry on the way may still
    /// be a link, which the disk does not follow.
    static std::optional<RelativePath> parse(std::string_view text, const PathRules& rules = {});

    /// The same decision where only that is wanted.
    static bool accepts(std::string_view text, const PathRules& rules = {});

    /// The parts joined with backslashes.
    const std::string& text() const { return text_; }

    /// They live as long as the path.
    std::vector<std::string_view> parts() const;

  private:
    explicit RelativePath(std::string text) : text_(std::move(text)) {}

    std::string text_;
};

/// Whether a text can be the name of one entry of a folder: neither empty nor "." or "..", without
/// a separator of either kind, a NUL or a line end, and on Windows without a colon.
bool isPlainName(std::string_view name);

} // namespace platform
