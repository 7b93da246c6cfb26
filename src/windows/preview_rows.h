// What the preview says, as rows and texts.
#pragma once

#include <string>
#include <vector>

#include "cycle/preview.h"
#include "windows/lists.h"

namespace windows {

/// How much there is of everything, in a sentence or two.
std::string figuresOf(const cycle::Preview& preview);

/// The tree of the game directory: folders ahead of files, by name. Those that hold something to
/// decide show what lies in them. A file's row is picked by its path as people see it, a folder's
/// by the same with a separator behind it, a move that fails by where its file lies now.
std::vector<TreeList::Row> treeOf(const cycle::Preview& preview, bool onlyConflicts);

/// A release or the game, as people call it.
std::string nameOf(const cycle::Owner& owner);

/// What becomes of the file that a contender brings to a place.
std::string fateOf(const cycle::Preview::File& file, const cycle::Owner& contender);

} // namespace windows
