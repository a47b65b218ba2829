#pragma once

#include "korvel/window/base/surface.h"
#include "korvel/window/display/paint_call.h"

#include <vector>

namespace korvel::internal {

/// Writes down what is painted.
class RecordingSurface final : public Surface {
public:
    std::vector<PaintCall> calls;

    void Fill(const CRect& rect, COLORREF color) override { Add(PaintCall::Kind::Fill, rect, color); }
    void Text(const CString& text, const CRect& rect, COLORREF color, UINT format) override {
        Add(PaintCall::Kind::Text, rect, color);
        calls.back().text = text;
        calls.back().format = format;
    }
    void Line(CPoint from, CPoint to, COLORREF color, LinePattern) override {
        Add(PaintCall::Kind::Line, {from.x, from.y, to.x, to.y}, color);
    }
    void Frame(const CRect& rect, COLORREF color) override { Add(PaintCall::Kind::Frame, rect, color); }
    void FocusRect(const CRect& rect) override { Add(PaintCall::Kind::Focus, rect, 0); }
    void Picture(const Image&, const CRect& rect) override { Add(PaintCall::Kind::Picture, rect, 0); }
    void Clip(const CRect* rect) override { Add(PaintCall::Kind::Clip, rect ? *rect : CRect(), 0); }
    void ClipRegion(const CRgn& region) override {
        Add(PaintCall::Kind::Clip, region.GetRgnBox(), 0);
        calls.back().region = region.Rectangles();
    }

private:
    void Add(PaintCall::Kind kind, const CRect& rect, COLORREF color) {
        calls.push_back({kind, rect, color, {}, {}, 0});
    }
};

} // namespace korvel::internal
