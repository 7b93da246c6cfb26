// A small game directory whose files and releases want the same places, what is done to it, and
// what must hold behind everything that goes wrong meanwhile.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "crash/session.h"

namespace crash {

/// A fresh game directory with the data tree of the program and nothing else.
Memory emptyGame();
/// The one that the operations work on.
Memory smallGame();

/// The user's files: all but those that the program keeps for itself, and files in the making.
Files userFiles(const platform::MemoryDisk& memory);
/// The selection files.
Files selectionFiles(const platform::MemoryDisk& memory);

/// Something that a user does in one session.
struct Operation {
    const char* name;
    std::string before; ///< the script of a calm session ahead of it; empty for none
    std::string script;
    Answer answer = Answer::yes;
    /// What it is to make of the user's files: the start of a path, and what becomes of it. One
    /// that becomes empty goes.
    std::vector<std::pair<std::string, std::string>> moves = {};
    /// Files that it may bring, whole.
    Files brings = {};
    /// What it says only where all of this is done; null if it never does.
    const char* promise = nullptr;
};

const std::vector<Operation>& operations();

/// What the oracle knows of an operation: the directory before it, and a calm run.
struct Calm {
    explicit Calm(const Operation& operation);

    const Operation& operation;
    Memory start; ///< the disk that the session begins with
    Files before; ///< the plain directory
    Files after;  ///< behind the operation
    Files selectionsBefore;
    Files selectionsAfter;
    Session session;

    /// The calls below tell what is wrong, empty for nothing.
    /// Behind a disturbed session: every content is somewhere, and what was promised has been done.
    std::string lost(const platform::MemoryDisk& memory, const Session& disturbed) const;
    /// Behind the next start: every file once, in a lawful place, no torn one, selections whole.
    std::string notPlain(const platform::MemoryDisk& memory) const;
    /// Whether what differs from the calm run was told, file by file.
    std::string silent(const platform::MemoryDisk& memory, const Session& disturbed) const;

  private:
    std::vector<std::string> placesOf(const std::string& path) const;
    std::string tornSelections(const platform::MemoryDisk& memory) const;
};

} // namespace crash
