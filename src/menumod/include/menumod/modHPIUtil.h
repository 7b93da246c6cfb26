// The game's archives by handle: open, list, extract, close.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>

#include "formats/archive.h"
#include "platform/disk.h"

namespace menumod {

/// Owns the archives that are open. A handle of 0 stands for none and may be given to every call.
class modHPIUtil {
  public:
    explicit modHPIUtil(platform::Disk& disk) : disk_(disk) {}

    /// A handle to the archive at a full path, or 0 if that file is none. 0 is no error: all files
    /// of the game directory are offered.
    int HPIOpen(const std::string& path);

    /// Gives the entry behind `next` (0 for the first) and returns what to call with for the one
    /// after it, or 0 if there was none. `type` 0 is a file that can be extracted.
    int HPIGetFiles(int handle, int next, std::string& name, int& type, int& size) const;

    /// Writes an entry, by the name that HPIGetFiles gave, to a full path. A file there is
    /// replaced; a folder that is missing is not made. An entry that cannot be trusted leaves all
    /// as it was. False where nothing was written.
    bool HPIExtractFile(int handle, const std::string& name, const std::string& destination);

    /// The content of an entry; nothing for one that cannot be trusted or has more than `most`
    /// bytes.
    std::optional<std::string> HPIReadFile(int handle, const std::string& name,
                                           std::size_t most) const;

    void HPIClose(int handle);

  private:
    struct OpenArchive {
        std::unique_ptr<platform::FileView> view;
        std::unique_ptr<formats::Archive> archive;
        mutable std::size_t lastListed = 0;
    };

    const OpenArchive* find(int handle) const;
    static bool findEntry(const OpenArchive& open, const std::string& name, std::size_t& entry);

    platform::Disk& disk_;
    std::map<int, OpenArchive> open_;
    int lastHandle_ = 0;
};

} // namespace menumod
