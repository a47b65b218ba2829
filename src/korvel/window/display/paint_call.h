#pragma once

#include "korvel/window/base/types.h"

#include <vector>

namespace korvel {

/// One call that a window made while it painted itself.
struct PaintCall {
    enum class Kind { Fill, Text, Line, Frame, Focus, Picture, Clip };
    Kind kind;
    CRect rect; // of a line: its two ends
    COLORREF color = 0;
    CString text;
    std::vector<CRect> region; // of a clip by a region, which lies in `rect`
    UINT format = 0;           // DT_*, of a text
};

} // namespace korvel
