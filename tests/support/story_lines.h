// What a story says of an event or a state, in one line.
#pragma once

#include <string>
#include <string_view>

#include "support/play.h"

namespace test {

/// "..." in the pattern stands for any text.
bool matches(std::string_view pattern, std::string_view text);

/// Stories are told in the words of POSIX; this is one of their lines as it is here.
std::string expectedHere(std::string line);

/// A line of a story's script as it is here, in this game directory.
std::string scriptHere(const std::string& line, const std::string& folder);

/// An event as one line; `folder` is called GAME in it.
std::string lineOf(const Event& event, const std::string& folder);

/// Windows and log lines may go untold in a story, questions and programs never.
bool mayGoUntold(const Event& event);

/// One field of a control's state.
std::string stateText(const Event& state, const std::string& field);

} // namespace test
