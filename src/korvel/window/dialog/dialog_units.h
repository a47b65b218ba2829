#pragma once

#include "korvel/window/app/dialog_template.h"

/// Dialog units in pixels of the font of the display in force.
namespace korvel::internal {

/// Each edge rounded to the nearest pixel.
CRect PixelsOf(const CRect& units);
/// Two places of one size in units have one size in pixels, wherever they are.
CRect PixelsOf(const DialogPlace& place);

} // namespace korvel::internal
