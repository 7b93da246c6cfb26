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
    const auto found = byDest_.find(platform::foldCase(toPath));
    if (found == byDest_.end() || found->second.empty())
        return -1;
    return *std::min_element(found->second.begin(), found->second.end());
}

void MoveList::forget(int slot) {
    std::erase(byDest_[platform::foldCase(at(slot).toPath)], slot);
}

void MoveList::remember(int slot) {
    byDest_[platform::foldCase(at(slot).toPath)].push_back(slot);
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
