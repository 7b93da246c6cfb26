// Looks at releases behind the scenes, so that nobody has to wait for pictures.
#pragma once

#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "releases/contents.h"
#include "releases/game_directory.h"

namespace releases {

/// One release after the other, in a second thread with a disk and a cache of its own. Where the
/// disk allows one thread alone, the work is done a little at each `take`.
///
/// All calls come from one thread, that of the windows, and none waits longer than for the step at
/// hand; `stop` and `finish` say otherwise. The game directory must be plain while it works, so
/// `stop` comes ahead of every change of releases or of the game's files.
class ContentsWorker {
  public:
    /// The directory must be open. Its disk's raw one must outlive the worker.
    explicit ContentsWorker(const GameDirectory& game);
    ~ContentsWorker();
    ContentsWorker(const ContentsWorker&) = delete;
    ContentsWorker& operator=(const ContentsWorker&) = delete;

    /// What is to be looked at, the most urgent first, by the paths that `Store::pathOf` gives. It
    /// takes the place of what was wanted before: the release at hand is given up unless it is the
    /// first again.
    void want(std::vector<std::string> paths);

    struct Found {
        std::string path; ///< as it was wanted
        std::shared_ptr<const Contents> contents;
    };
    /// What has been found since the last call, in the order of the finding. It may be of a release
    /// that is not wanted any more, but never of one that was given up.
    std::vector<Found> take();

    /// Whether something that is wanted is still to come, or to be taken.
    bool isBusy() const;

    /// Gives up what is wanted, and returns when no archive is open any more. Forgets the colours
    /// of the game, which are read anew when it is next wanted.
    void stop();

    /// Returns when all that is wanted can be taken.
    void finish();

  private:
    class Work;

    void run();
    /// Lets go of the lock meanwhile. False where nothing is to be done.
    bool doStep(std::unique_lock<std::mutex>& lock);

    std::unique_ptr<Work> work_; ///< the worker's own, touched by whoever does the steps
    bool hasThread_;
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::string> wanted_; ///< the first one is being read while `isReading_`
    bool isReading_ = false;
    bool isGivenUp_ = false; ///< the one that is being read
    bool isEnding_ = false;
    std::vector<Found> found_;
    std::thread thread_;
};

} // namespace releases
