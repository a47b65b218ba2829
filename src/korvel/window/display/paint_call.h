#pragma once

#include "korvel/window/base/types.h"

namespace korvel {

/// One call that a window made while it painted itself.
struct PaintCall {
    enum class Kind { Fill, Text, Line, Frame, Focus, Picture, Clip };
    Kind kind;
    CRect rect; // of a line: its two ends
    COLORREF color = 0;
    CString text;
};

} // namespace korvel
