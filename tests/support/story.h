// A scripted session as a story: a script whose comments tell the game directory, what the user
// sees and what lies on the disk behind it. CONTRIBUTING.md has the lines that count.
#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/play.h"

namespace test {

/// The files of all stories.
std::vector<std::string> stories();
/// What a test of a story is called.
std::string storyName(const testing::TestParamInfo<std::string>& file);

/// Plays the story and tells every expectation that did not hold as a test failure.
void playStory(const std::string& file, const MakeToolkit& makeToolkit = withoutScreen);

} // namespace test
