// The folder is listed once; from then on the sizes of its files are known.
#include "releases/contents_cache.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "platform/failure.h"
#include "platform/text.h"

namespace releases {
namespace {

constexpr std::string_view ending = ".vxc";

std::string nameOf(std::uint64_t key) {
    std::array<char, 17> digits{};
    std::snprintf(digits.data(), digits.size(), "%016llx", static_cast<unsigned long long>(key));
    return digits.data() + std::string(ending);
}

} // namespace

std::optional<Contents> ContentsCache::find(std::uint64_t key) {
    const auto name = nameOf(key);
    const auto path = pathOf(name);
    if (disk_.kindOf(path) != platform::EntryKind::file)
        return std::nullopt;
    std::optional<Contents> contents;
    platform::attempt([&] { contents = readCached(key, disk_.readFile(path)); });
    if (!contents) {
        look();
        drop(name);
    }
    return contents;
}

void ContentsCache::keep(std::uint64_t key, const Contents& contents) {
    const auto bytes = cachedBytes(key, contents);
    if (bytes.size() > most_ / 4)
        return;
    platform::attempt([&] {
        if (disk_.kindOf(folder_) != platform::EntryKind::folder) {
            disk_.makeFolder(folder_);
            kept_.reset();
        }
        look();
        const auto name = nameOf(key);
        disk_.writePieces(pathOf(name), [&](const platform::PieceSink& sink) { sink(bytes); });
        auto& kept = (*kept_)[name];
        all_ += bytes.size() - kept.size;
        kept = {bytes.size(), disk_.factsOf(pathOf(name)).modified};
        makeRoom();
    });
}

void ContentsCache::look() {
    if (kept_)
        return;
    kept_.emplace();
    all_ = 0;
    platform::attempt([&] {
        for (const auto& name : disk_.fileNames(folder_)) {
            if (!platform::endsWithIgnoringCase(name, ending))
                continue;
            const auto facts = disk_.factsOf(pathOf(name));
            kept_->emplace(name, Kept{facts.size, facts.modified});
            all_ += facts.size;
        }
    });
}

void ContentsCache::drop(const std::string& name) {
    platform::attempt([&] { disk_.removeFile(pathOf(name)); });
    if (const auto kept = kept_->find(name); kept != kept_->end()) {
        all_ -= kept->second.size;
        kept_->erase(kept);
    }
}

/// For some more than is needed, so that it is not done for every file.
void ContentsCache::makeRoom() {
    if (all_ <= most_)
        return;
    std::vector<std::pair<std::int64_t, std::string>> oldest;
    for (const auto& [name, kept] : *kept_)
        oldest.emplace_back(kept.modified, name);
    std::ranges::sort(oldest);
    for (const auto& [modified, name] : oldest)
        if (all_ > most_ - most_ / 8)
            drop(name);
}

} // namespace releases
