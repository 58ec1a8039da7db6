#pragma once
// Toolbar icons: the desktop theme's icon when it has one, otherwise a
// painted tile with the caption's first character, so a toolbar is never blank.
#include <QColor>
#include <QIcon>

namespace Icons {
QIcon Themed(const QString& themeName, const QString& caption, const QColor& colour, int size = 32);
}  // namespace Icons
