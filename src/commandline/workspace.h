// What the commands work on: the game directory, opened and locked, and what is known of it.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "command_line.h"
#include "commandline/commands.h"
#include "cycle/last_launch.h"
#include "cycle/sets.h"
#include "cycle/unfinished.h"
#include "platform/instance_lock.h"
#include "releases/game_directory.h"
#include "releases/store.h"
#include "terminal.h"

namespace commandline {

/// Ends a command: the text is for people, and nothing is to be done any more.
struct Stop {
    ExitCode code;
    std::string text;
};

/// No two programs at a time work on one directory, not even to look at it: what a command tells is
/// to be true when it is read.
class Workspace {
  public:
    /// Throws Stop for a directory that is none of the game, or that another copy holds.
    Workspace(const Machine& machine, const CommandLine& line);

    const Machine& machine;
    const CommandLine& line;
    TerminalLog log;
    TerminalQuestions questions;
    releases::GameDirectory game;
    releases::Store store;

    const cycle::LastLaunch& last() const { return last_; }
    /// Files of a launch lie in the game directory, as far as is known.
    bool isApplied() const;
    /// As the state is called, for people and programs: "plain" or "applied".
    std::string state() const { return isApplied() ? "applied" : "plain"; }
    bool gameRuns() const;
    /// What a launch would find that is not preceded by a reset.
    cycle::Unfinished unfinished() const;

    /// Throw Stop. Files that the game has open could not be moved.
    void refuseRunningGame() const;
    /// Of what is not done where files of a launch may lie.
    void refuseApplied(const std::string& command) const;

    /// What is selected: by the saved selection, or by the set that the command line names, whose
    /// answers go ahead of the remembered ones. Tells what cannot be read and counts as blank.
    /// Throws Stop for a set that cannot be read.
    cycle::Set selected();
    /// The saved one.
    cycle::Selection savedSelection();
    /// What could not be read is not to be replaced.
    bool answersWereRead() const { return answersWereRead_; }
    /// What of a selection no release has. Loose files that lie in the game directory count as
    /// there.
    std::vector<cycle::Owner> missing(cycle::Selection selection) const;
    /// Loose files that lie in the game directory, as releases.
    std::vector<cycle::Owner> appliedLooseFiles() const;

    /// Tells of files that should tell of the last launch and do not.
    void tellOfDamage() const;
    /// What a start does: the directory is plain behind it, as far as it could be made. The
    /// selection on the disk stays.
    cycle::Unfinished reset();

  private:
    std::unique_ptr<platform::InstanceLock> lock_;
    cycle::LastLaunch last_;
    bool answersWereRead_ = true;
};

/// A type by its short name, in any case. Throws WrongUse.
const releases::TypeInfo& typeOf(const std::string& shortName);

/// As people name it: `Map "Great Divide"`.
std::string named(const cycle::Owner& owner);

} // namespace commandline
