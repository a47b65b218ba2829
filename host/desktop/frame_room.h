#pragma once

#include <QMargins>

namespace korvel::inspector {

/// Pixels that a window's frame and title are given on a screen: they are not known before it is shown.
constexpr QMargins FrameRoom = {8, 40, 8, 8};

} // namespace korvel::inspector
