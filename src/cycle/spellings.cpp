// The very name goes before one in another case.
#include "spellings.h"

#include <algorithm>

#include "platform/text.h"

namespace cycle {

const Spellings::Listed& Spellings::listedOf(releases::ReleaseType type) {
    const auto [listed, isFirst] = byType_.try_emplace(type);
    if (isFirst)
        for (auto& name : store_.releasesOf(type))
            listed->second.emplace(platform::foldCase(name), std::move(name));
    return listed->second;
}

std::optional<std::string> Spellings::here(const Owner& release) {
    const auto [first, last] = listedOf(release.type).equal_range(platform::foldCase(release.name));
    const bool isListed =
        std::any_of(first, last, [&](const auto& listed) { return listed.second == release.name; });
    // What was renamed or added since is not listed, but there.
    auto name = isListed || first == last ? release.name : first->second;
    return store_.isThere(release.type, name) ? std::optional(std::move(name)) : std::nullopt;
}

} // namespace cycle
