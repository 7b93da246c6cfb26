// Whether widgets show what their controls hold.
#pragma once

#include <string>
#include <vector>

#include <QWidget>

#include "windows/controls.h"

namespace test {

/// A line for each thing that the widgets of a window show otherwise than the controls have it.
std::vector<std::string> mismatches(const windows::Window& window, const QWidget& view);

} // namespace test
