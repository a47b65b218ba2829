#pragma once

#include "korvel/window/display/paint_call.h"

#include <algorithm>
#include <string>
#include <vector>

namespace korvel {

/// What one painting of a window drew.
struct Picture {
    std::vector<PaintCall> calls;

    /// The color that lies last at a point.
    COLORREF At(CPoint place) const {
        COLORREF color = 0xFFFFFFFF;
        for (const PaintCall& call : calls)
            if (call.kind == PaintCall::Kind::Fill && call.rect.PtInRect(place))
                color = call.color;
        return color;
    }
    /// Null: it was not drawn.
    const PaintCall* FindText(const std::string& text) const {
        const auto found = std::find_if(calls.begin(), calls.end(), [&](const PaintCall& call) {
            return call.kind == PaintCall::Kind::Text && call.text == text;
        });
        return found == calls.end() ? nullptr : &*found;
    }
    /// How many calls of a kind begin within an area.
    int Count(PaintCall::Kind kind, const CRect& area) const {
        return static_cast<int>(std::count_if(
            calls.begin(), calls.end(),
            [&](const PaintCall& call) { return call.kind == kind && area.PtInRect(call.rect.TopLeft()); }));
    }
};

} // namespace korvel
