// Looking costs a quarter of moving, so the second thread is ahead from the first entries on.
#include "platform/look_ahead.h"

#include <utility>

#include "platform/raw_disk.h"

namespace platform {
namespace {

/// Fewer are not worth a thread.
constexpr std::size_t fewest = 256;
constexpr std::size_t aRound = 64;

} // namespace

LookAhead::LookAhead(const Disk& disk, std::size_t count, PathOf pathOf)
    : disk_(disk.raw()), pathOf_(std::move(pathOf)), left_(count) {
    disk_.setGameDirectory(disk.gameDirectory());
    if (count < fewest || !disk.raw()->servesThreads())
        return;
    facts_.resize(count);
    thread_ = std::thread([this] { lookAtAll(); });
}

LookAhead::~LookAhead() {
    isEnding_ = true;
    if (thread_.joinable())
        thread_.join();
}

EntryFacts LookAhead::factsOf(std::size_t number) {
    if (facts_.empty()) {
        pathOf_(number, path_);
        return disk_.factsOf(path_);
    }
    for (auto left = left_.load(); left > number; left = left_.load())
        left_.wait(left);
    return facts_[number];
}

void LookAhead::lookAtAll() {
    std::string path;
    for (auto number = facts_.size(); number > 0 && !isEnding_; --number) {
        pathOf_(number - 1, path);
        facts_[number - 1] = disk_.factsOf(path);
        if (number % aRound == 1) {
            left_ = number - 1;
            left_.notify_one();
        }
    }
}

} // namespace platform
