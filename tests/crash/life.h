// The life of a small game directory, step by step: two releases and the game want the same names.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "crash/points.h"
#include "crash/session.h"

namespace crash {

/// A directory between two sessions, and what is known of the files in it.
class Life {
  public:
    Life();
    Life(const Life& other);
    Life& operator=(const Life& other);
    Life(Life&&) = default;
    Life& operator=(Life&&) = default;
    ~Life() = default;

    /// Plays a session, calm or not, and tells what is wrong behind it, empty for nothing. Removing
    /// a release takes its files away for good.
    std::string session(const std::string& script, Answer answer = Answer::yes,
                        const Fault& fault = {}, const std::string& removes = {});
    /// All that a stop in the session would leave, but for what looks like another.
    std::vector<Life> stopsIn(const std::string& script, Answer answer,
                              const std::string& removes = {}) const;
    /// The power goes behind a session that was stopped.
    std::string powerGoes(bool inOrder, std::uint32_t seed);

    bool has(const std::string& path) const;
    bool isMapThere(const std::string& name) const { return has("Vexillum/Map-" + name); }
    /// From outside, all of them. A file put where a release's may lie may be taken for it.
    void put(const std::string& path);
    void remove(const std::string& path);
    void rename(const std::string& path, const std::string& newPath);
    void setWritable(const std::string& folder, bool can);

    /// What is wrong, empty for nothing: every content is there once, and behind a whole start
    /// where it belongs, or noted and told.
    std::string check(const Session* start) const;

    /// Equal for equal directories.
    std::string key() const;

  private:
    enum class Owner { game, release, either };
    struct Known {
        Owner owner;
        std::string path; ///< of the game, or below a release
    };

    void settle();
    void confuse(const std::string& path);
    void know(const std::string& path, const std::string& content);
    void forgetRemoved(const Files& plain, const std::string& release);

    Memory memory_;
    std::map<std::string, Known> known_; ///< by contents, which are all different
    bool mayHoldReleases_ = false;
    int nextContent_ = 0;
};

/// Something that happens in a life: a session of the program, or a change from outside.
struct Step {
    const char* name;
    bool isForSmallWorlds;
    std::function<bool(const Life&)> isPossible;
    std::function<void(Life&)> change; ///< none for a session
    std::function<std::string(const Life&)> script = nullptr;
    Answer answer = Answer::yes;
    std::string removes = {};

    bool isSession() const { return !change; }
    /// Gives back what is wrong behind it.
    std::string run(Life& life, const Fault& fault = {}) const;
};

const std::vector<Step>& steps();

/// Plays a sequence of steps as a finding tells it.
std::string playWay(const std::string& way);

/// Every sequence of that many steps, and behind each what a start makes of it; stops are steps.
void trySmallWorlds(const Limits& limits, int length, Report& report);
/// One directory for so many runs, with stops, failures, losses of power and changes from outside.
void tryLongLife(const Limits& limits, int runs, Report& report);
/// Each change from outside between a launch and the starts behind it.
void tryOutsideChanges(Report& report);

} // namespace crash
