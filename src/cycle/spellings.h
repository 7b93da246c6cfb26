// Names of releases as they are spelled here, whatever their case where they come from.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "cycle/decisions.h"
#include "releases/store.h"

namespace cycle {

/// Keeps what is listed, so that many names can be looked up. The store must outlive it.
class Spellings {
  public:
    explicit Spellings(const releases::Store& store) : store_(store) {}

    /// The name that a release has here; nothing where there is no such release on the disk now.
    std::optional<std::string> here(const Owner& release);

  private:
    using Listed = std::multimap<std::string, std::string>; ///< by their names, case folded

    const Listed& listedOf(releases::ReleaseType type);

    const releases::Store& store_;
    std::map<releases::ReleaseType, Listed> byType_;
};

} // namespace cycle
