// Distances that all parts of the main window keep, in pixels at 96 dots an inch.
#pragma once

#include <QWidget>

namespace views {

inline constexpr int gap = 8;
inline constexpr int margin = 12;

/// A layout without a margin of its own.
template <typename Box>
Box* tight(QWidget* parent = nullptr) {
    auto* box = parent != nullptr ? new Box(parent) : new Box();
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(gap);
    return box;
}

} // namespace views
