// A transcript: what the user of a session has seen, event by event. docs/session-runner.md has the
// fields of each.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <nlohmann/json.hpp>

#include "windows/toolkit.h"

namespace headless {

using Event = nlohmann::ordered_json;
/// Takes the transcript, event by event.
using Transcript = std::function<void(const Event&)>;

/// A text of the program as a person sees it: UTF-8 with single line breaks.
std::string shownText(std::string_view text);

Event showEvent(const windows::Window& window, bool modal);
Event hideEvent(const windows::Window& window);
Event minimizeEvent(const windows::Window& window);
Event restoreEvent(const windows::Window& window);
Event messageEvent(const windows::MessageBox& box, const windows::MessageAnswer& answer);
Event inputEvent(const windows::InputBox& box, const std::optional<std::string>& answer);
Event fileDialogEvent(const windows::FileDialog& dialog, const std::optional<std::string>& answer);
Event clipboardEvent(const std::string& text);
Event logEvent(const std::string& line);
Event refusedEvent(const std::string& line);

/// The state of the windows and of all their controls.
Event stateEvent(const std::vector<windows::Window*>& open);

} // namespace headless
