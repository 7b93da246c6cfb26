// The data tree as it comes to be in a game directory. The disk of these calls is none that works
// on another game directory: its bounds are set anew.
#pragma once

#include <string>

#include "platform/disk.h"

namespace installation {

bool hasGame(platform::Disk& disk, const std::string& directory);
bool hasDataTree(platform::Disk& disk, const std::string& directory);

/// Copies the stock data into a game directory that has no data tree. It gets its name when all of
/// it is there; after a failure, which is thrown, or a crash the next call goes on with what is.
void setUp(platform::Disk& disk, const std::string& stock, const std::string& directory);

/// Brings to the state of the stock what is the program's own in a data tree: help, About text and
/// the data of the modifier. Nothing else is looked at. Throws Failure.
void bringUpToDate(platform::Disk& disk, const std::string& stock, const std::string& directory);

} // namespace installation
