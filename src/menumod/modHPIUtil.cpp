// Handles over the platform's archive reader.
#include "menumod/modHPIUtil.h"

#include "platform/failure.h"

namespace menumod {

int modHPIUtil::HPIOpen(const std::string& path) {
    OpenArchive found;
    platform::attempt([&] {
        found.view = disk_.mapFile(path);
        found.archive = formats::Archive::open(found.view->bytes());
    });
    if (!found.archive)
        return 0;
    open_.emplace(++lastHandle_, std::move(found));
    return lastHandle_;
}

const modHPIUtil::OpenArchive* modHPIUtil::find(int handle) const {
    const auto at = open_.find(handle);
    return at == open_.end() ? nullptr : &at->second;
}

int modHPIUtil::HPIGetFiles(int handle, int next, std::string& name, int& type, int& size) const {
    const auto* open = find(handle);
    if (open == nullptr || next < 0 ||
        static_cast<std::size_t>(next) >= open->archive->entries().size())
        return 0;
    open->lastListed = static_cast<std::size_t>(next);
    name = open->archive->pathOf(open->lastListed);
    type = open->archive->entries()[open->lastListed].isFolder ? 1 : 0;
    size = 0;
    return next + 1;
}

bool modHPIUtil::findEntry(const OpenArchive& open, const std::string& name, std::size_t& entry) {
    const auto& entries = open.archive->entries();
    // As a rule the entry asked for is the one listed last.
    if (open.lastListed < entries.size() && open.archive->pathOf(open.lastListed) == name) {
        entry = open.lastListed;
        return true;
    }
    for (entry = 0; entry < entries.size(); ++entry)
        if (!entries[entry].isFolder && open.archive->pathOf(entry) == name)
            return true;
    return false;
}

bool modHPIUtil::HPIExtractFile(int handle, const std::string& name,
                                const std::string& destination) {
    const auto* open = find(handle);
    std::size_t entry = 0;
    if (open == nullptr || !findEntry(*open, name, entry))
        return false;
    return platform::attempt([&] {
        disk_.writePieces(destination, [&](const platform::PieceSink& sink) {
            open->archive->extract(entry, sink);
        });
    });
}

std::optional<std::string> modHPIUtil::HPIReadFile(int handle, const std::string& name,
                                                   std::size_t most) const {
    const auto* open = find(handle);
    std::size_t entry = 0;
    if (open == nullptr || !findEntry(*open, name, entry))
        return std::nullopt;
    std::string content;
    const bool isWhole = platform::attempt([&] {
        open->archive->extract(entry, [&](std::string_view piece) {
            if (piece.size() > most - content.size())
                throw platform::Failure("read", name, "it is too large");
            content += piece;
        });
    });
    return isWhole ? std::optional(std::move(content)) : std::nullopt;
}

void modHPIUtil::HPIClose(int handle) {
    open_.erase(handle);
}

} // namespace menumod
