// The signs beside a message: a question's and a warning's.
#pragma once

#include <QIcon>

namespace views {

QIcon questionIcon(const QColor& ground, const QColor& sign);
QIcon warningIcon();

} // namespace views
