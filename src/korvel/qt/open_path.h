#pragma once

#include "korvel/window/core/display.h"

class QString;
class QWidget;

namespace korvel::internal {

/// IDisplay::OpenPath over the services of the desktop. `owner` may be null.
int OpenOnDesktop(const QWidget* owner, const QString& path, OpenAs as);

/// Whether opening the file might run it: by its permissions, its name or what is in it.
bool IsProgram(const QString& path);

} // namespace korvel::internal
