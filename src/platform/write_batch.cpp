// A sync of the whole disk costs about as much as one of a single file.
#include "platform/write_batch.h"

#include <algorithm>
#include <utility>

#include "check.h"
#include "part_file.h"

namespace platform {
namespace {

/// Each file's folder is held open.
constexpr std::size_t mostWaiting = 2000;
constexpr std::size_t mostFolders = 100;

} // namespace

WriteBatch::WriteBatch(Disk& disk) : disk_(disk) {
    disk.batch_ = this;
}

WriteBatch::~WriteBatch() {
    disk_.batch_ = nullptr;
    for (auto& waiting : waiting_)
        waiting.part->discard();
}

void WriteBatch::add(Waiting waiting) {
    if (!disk_.raw()->syncsAllContents())
        orUndo([&] { waiting.part->sync(); }, [&] { waiting.part->discard(); });
    waiting.part->close();
    if (waiting_.empty() || waiting_.back().folder != waiting.folder)
        ++folders_;
    waiting_.push_back(std::move(waiting));
    if (waiting_.size() >= mostWaiting || folders_ >= mostFolders)
        commit();
}

void WriteBatch::commit() {
    std::vector<std::uint64_t> synced;
    for (const auto& waiting : waiting_)
        waiting.part->syncDisk(synced);
    std::reverse(waiting_.begin(), waiting_.end());
    for (; !waiting_.empty(); waiting_.pop_back()) {
        auto& waiting = waiting_.back();
        waiting.part->replace(waiting.leaf);
        if (waiting.isNew)
            waiting.folder->noteAdded(waiting.leaf);
    }
    folders_ = 0;
}

} // namespace platform
