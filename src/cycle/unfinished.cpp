// Looked up by folded paths: every file of every listing is asked for.
#include "cycle/unfinished.h"

#include "platform/text.h"

namespace cycle {

Unfinished::Unfinished(formats::Journal pending, bool isNoted)
    : pending_(std::move(pending)), isNoted_(isNoted) {
    for (const auto& move : pending_.moves) {
        destinations_.insert(platform::foldCase(move.destination));
        places_.insert(platform::foldCase(move.source));
        for (const auto* path : {&move.source, &move.destination})
            for (auto cut = path->find('\\'); cut != std::string::npos;
                 cut = path->find('\\', cut + 1))
                places_.insert(platform::foldCase(path->substr(0, cut)));
    }
}

bool Unfinished::isPending(std::string_view path) const {
    return !destinations_.empty() && destinations_.contains(platform::foldCase(path));
}

bool Unfinished::touches(std::string_view place) const {
    return !places_.empty() && places_.contains(platform::foldCase(place));
}

} // namespace cycle
