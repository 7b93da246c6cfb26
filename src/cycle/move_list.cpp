// A plan has as many entries as the game directory has files, so destinations are looked up by
// hash.
#include "cycle/move_list.h"

#include <algorithm>

#include "platform/text.h"

namespace cycle {

void MoveList::add(moveEntry entry) {
    slots_.push_back(std::move(entry));
    remember(last());
}

void MoveList::setToPath(int slot, std::string toPath) {
    forget(slot);
    at(slot).toPath = std::move(toPath);
    remember(slot);
}

void MoveList::clear(int slot) {
    forget(slot);
    at(slot) = {};
}

int MoveList::firstWithDest(std::string_view toPath) const {
    const auto [begin, end] = byDest_.equal_range(platform::hashIgnoringCase(toPath));
    int first = -1;
    for (auto at = begin; at != end; ++at)
        if ((first == -1 || at->second < first) &&
            platform::equalIgnoringCase((*this)[at->second].toPath, toPath))
            first = at->second;
    return first;
}

void MoveList::forget(int slot) {
    const auto [begin, end] = byDest_.equal_range(platform::hashIgnoringCase(at(slot).toPath));
    const auto known =
        std::find_if(begin, end, [&](const auto& each) { return each.second == slot; });
    if (known != end)
        byDest_.erase(known);
}

void MoveList::remember(int slot) {
    byDest_.emplace(platform::hashIgnoringCase(at(slot).toPath), slot);
}

std::string cleanRelPath(std::string_view path) {
    path.remove_prefix(std::min(path.find_first_not_of('\\'), path.size()));
    if (path.find("\\\\") == std::string_view::npos)
        return std::string(path);
    return platform::replaceAll(path, "\\\\", "\\");
}

void addMove(MoveList& moves, std::string_view fromPath, std::string_view toPath,
             releases::ReleaseType type, std::string_view relName) {
    moves.add({cleanRelPath(fromPath), cleanRelPath(toPath), type, std::string(relName)});
}

int findDest(const MoveList& moves, std::string_view toPath) {
    return moves.firstWithDest(toPath);
}

} // namespace cycle
