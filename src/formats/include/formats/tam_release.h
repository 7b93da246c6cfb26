// Releases in the format of another tool, TAM: what its data files say, worked out without a disk.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace formats {

/// What the data file says it is; the type of release that it becomes is the user's choice.
enum class TamType { tc, ai, mutator, ufo, unitPack };

/// One step of a conversion. The steps are carried out in order; those of a conversion that fails
/// end in an `error`, and what was made by then stays.
struct TamStep {
    enum class Kind {
        message,    ///< `text` is told
        error,      ///< `text` is told, and the conversion has failed
        makeFolder, ///< the release's folder: `text` is the name of the release
        write,      ///< `text` is written to the file `to` of the release
        copy,       ///< a file `from` beside the data file, to `to` in the release
        copyIfThere ///< the same, and nothing where there is no such file
    };
    Kind kind;
    std::string text;
    // As they stand in the data file, with separators of both kinds. Neither leads away
    // (staysBelow).
    std::string from;
    std::string to;
};

/// `fileName` is the name of the picked file, `data` its content (nothing is read of a .ufo), and
/// `shortType` the type of release that it becomes, for one of the messages. Never fails: a line
/// that makes no sense ends the steps in an `error`.
std::vector<TamStep> convertTam(TamType type, std::string_view fileName, std::string_view data,
                                std::string_view shortType);

/// What is told of every failure without a message of its own.
inline constexpr std::string_view somethingBad = "Error: something bad happened";

/// Whether a member's path stays below the folder it belongs to and has a length that a disk can
/// hold. Both separators count. An empty path stays.
bool staysBelow(std::string_view path);

} // namespace formats
