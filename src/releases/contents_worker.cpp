// The lock guards what is wanted and found, never the work itself.
#include "releases/contents_worker.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "platform/raw_disk.h"
#include "releases/contents_cache.h"
#include "releases/contents_reader.h"
#include "releases/game_colours.h"

namespace releases {
namespace {

/// Without a thread: what a call may take.
constexpr int stepsACall = 16;

} // namespace

/// The release at hand.
class ContentsWorker::Work {
  public:
    explicit Work(const GameDirectory& game)
        : disk_(game.disk().raw()), folder_(game.TADir()),
          cache_(disk_, game.inDataTree(ContentsCache::folderName)) {
        disk_.setGameDirectory(folder_);
    }

    /// What was found, once all is done. What nobody foresaw ends the look, not the program.
    std::shared_ptr<const Contents> step(const std::string& path) {
        try {
            if (!reader_)
                begin(path);
            if (reader_->step())
                return nullptr;
        } catch (const std::exception&) {
            // What is known by then is told.
        }
        auto found = std::make_shared<const Contents>(reader_ ? reader_->contents() : Contents());
        reader_.reset();
        return found;
    }

    void giveUp() { reader_.reset(); }
    void forgetColours() { hasColours_ = false; }

  private:
    void begin(const std::string& path) {
        if (!std::exchange(hasColours_, true))
            colours_ = coloursOfGame(disk_, folder_);
        reader_.emplace(disk_, path, colours_, &cache_);
    }

    platform::Disk disk_; ///< knows its folders for itself
    std::string folder_;
    ContentsCache cache_;
    bool hasColours_ = false;
    std::optional<formats::Colours> colours_;
    std::optional<ContentsReader> reader_;
};

ContentsWorker::ContentsWorker(const GameDirectory& game)
    : work_(std::make_unique<Work>(game)), hasThread_(game.disk().raw()->servesThreads()) {}

ContentsWorker::~ContentsWorker() {
    {
        const std::lock_guard lock(mutex_);
        isEnding_ = isGivenUp_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable())
        thread_.join();
}

void ContentsWorker::want(std::vector<std::string> paths) {
    {
        const std::lock_guard lock(mutex_);
        const bool goesOn = isReading_ && !isGivenUp_ && !paths.empty() && !wanted_.empty() &&
                            paths.front() == wanted_.front();
        isGivenUp_ = isReading_ && !goesOn;
        wanted_.assign(std::make_move_iterator(paths.begin()),
                       std::make_move_iterator(paths.end()));
        std::erase_if(wanted_, [this](const std::string& path) {
            return std::ranges::find(found_, path, &Found::path) != found_.end();
        });
        if (hasThread_ && !wanted_.empty() && !thread_.joinable())
            thread_ = std::thread([this] { run(); });
    }
    changed_.notify_all();
}

bool ContentsWorker::doStep(std::unique_lock<std::mutex>& lock) {
    if (isGivenUp_) {
        lock.unlock();
        work_->giveUp();
        lock.lock();
        isReading_ = isGivenUp_ = false;
        changed_.notify_all();
        return true;
    }
    if (wanted_.empty())
        return false;
    isReading_ = true;
    const auto path = wanted_.front();
    lock.unlock();
    auto found = work_->step(path);
    lock.lock();
    if (found == nullptr)
        return true;
    isReading_ = false;
    if (!std::exchange(isGivenUp_, false)) {
        found_.push_back({path, std::move(found)});
        wanted_.pop_front();
    }
    changed_.notify_all();
    return true;
}

void ContentsWorker::run() {
    std::unique_lock lock(mutex_);
    while (!isEnding_)
        if (!doStep(lock))
            changed_.wait(lock, [this] { return isEnding_ || isGivenUp_ || !wanted_.empty(); });
}

std::vector<ContentsWorker::Found> ContentsWorker::take() {
    std::unique_lock lock(mutex_);
    for (int left = stepsACall; left > 0 && !hasThread_ && doStep(lock); --left) {
    }
    return std::exchange(found_, {});
}

bool ContentsWorker::isBusy() const {
    const std::lock_guard lock(mutex_);
    return !wanted_.empty() || !found_.empty();
}

void ContentsWorker::stop() {
    want({});
    std::unique_lock lock(mutex_);
    while (!hasThread_ && doStep(lock)) {
    }
    changed_.wait(lock, [this] { return !isReading_; });
    work_->forgetColours();
}

void ContentsWorker::finish() {
    std::unique_lock lock(mutex_);
    while (!hasThread_ && doStep(lock)) {
    }
    changed_.wait(lock, [this] { return wanted_.empty() && !isReading_; });
}

} // namespace releases
