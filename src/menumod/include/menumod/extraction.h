// Taking whole folders out of the game's archives, for the build-menu modifier and the conflict
// finder alike.
#pragma once

#include <functional>
#include <string>

#include "menumod/modHPIUtil.h"
#include "releases/game_directory.h"

namespace menumod {

class Extraction {
  public:
    explicit Extraction(const releases::GameDirectory& game)
        : game_(game), archives_(game.disk()) {}

    modHPIUtil& archives() { return archives_; }

    /// Asked before an entry is written to a file in the folder that is extracted; true if the
    /// entry has been taken over. `name` is relative to the folder's parent.
    std::function<bool(int handle, const std::string& name)> takeOver;

    /// Told of each folder that could not be made, if it is set.
    std::function<void(const std::string& what)> onFailure;

    /// Opens each file of the game directory that is an archive and hands its handle to `visit`.
    void forEachArchive(const std::function<void(int handle)>& visit);

    /// Gives each file below `folder`, which is in lower case, that `extractFolder` would extract
    /// there.
    void eachFile(int handle, const std::string& folder,
                  const std::function<void(const std::string& name)>& take);

    /// Extracts the entries whose path begins with `folder` and ends in `extension`, both in lower
    /// case, to the folder `dest` of the game directory, or of the data tree with `underTree`.
    /// Passes over every failure.
    void extractFolder(int handle, const std::string& folder, const std::string& extension,
                       const std::string& dest, bool underTree);

  private:
    void eachEntry(int handle, const std::string& folder, const std::string& extension,
                   const std::function<void(const std::string& name)>& take);
    void extractEntry(int handle, const std::string& name, const std::string& folder,
                      const std::string& destination);

    const releases::GameDirectory& game_;
    modHPIUtil archives_;
};

} // namespace menumod
