// A scripted session as a story: a script whose comments tell the game directory, what the user
// sees and what lies on the disk behind it. CONTRIBUTING.md has the lines that count.
#pragma once

#include <string>

namespace test {

/// Plays the story and tells every expectation that did not hold as a test failure.
void playStory(const std::string& file);

} // namespace test
