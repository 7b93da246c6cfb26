// A plan has as many entries as the game directory has files, so destinations are looked up by
// hash.
#include "cycle/move_list.h"

#include <algorithm>
#include <utility>

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

std::vector<moveEntry> MoveList::takeSlots() {
    auto slots = std::move(slots_);
    *this = {};
    return slots;
}

int MoveList::firstWithDest(std::string_view toPath) const {
    int first = -1;
    byDest_.each(platform::hashIgnoringCase(toPath), [&](platform::HashChains::Slot found) {
        const int slot = static_cast<int>(found);
        if ((first == -1 || slot < first) &&
            platform::equalIgnoringCase((*this)[slot].toPath, toPath))
            first = slot;
    });
    return first;
}

void MoveList::forget(int slot) {
    byDest_.remove(static_cast<platform::HashChains::Slot>(slot));
}

void MoveList::remember(int slot) {
    byDest_.add(static_cast<platform::HashChains::Slot>(slot),
                platform::hashIgnoringCase(at(slot).toPath));
}

std::string cleanRelPath(std::string path) {
    if (path.starts_with('\\'))
        path.erase(0, path.find_first_not_of('\\'));
    if (path.find("\\\\") == std::string::npos)
        return path;
    return platform::replaceAll(path, "\\\\", "\\");
}

void addMove(MoveList& moves, std::string fromPath, std::string toPath, releases::ReleaseType type,
             std::string_view relName) {
    moves.add({cleanRelPath(std::move(fromPath)), cleanRelPath(std::move(toPath)), type,
               std::string(relName)});
}

int findDest(const MoveList& moves, std::string_view toPath) {
    return moves.firstWithDest(toPath);
}

} // namespace cycle
