#pragma once

#include <QStringList>

class QWidget;

namespace korvel::gallery {

/// The texts of buttons and labels in a window that have less room than they need.
QStringList CutOffTexts(const QWidget& window);

} // namespace korvel::gallery
