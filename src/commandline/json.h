// JSON documents of the commands. docs/vexillum.6 has their members.
#pragma once

#include <ostream>
#include <string>

#include <nlohmann/json.hpp>

#include "cycle/decisions.h"
#include "cycle/selection.h"
#include "platform/disk.h"
#include "platform/text.h"
#include "releases/release_types.h"

namespace commandline {

/// Members stay in their order.
using Json = nlohmann::ordered_json;

/// A path of the program as people see it, in UTF-8.
inline std::string shown(std::string_view path) {
    return platform::toUtf8(platform::shownPath(path));
}

inline Json jsonOf(const cycle::Owner& owner) {
    return {{"type", releases::infoOf(owner.type).shortName},
            {"name", platform::toUtf8(owner.name)}};
}

inline void print(std::ostream& output, const Json& document) {
    constexpr int indent = 2;
    output << document.dump(indent) << '\n';
}

} // namespace commandline
