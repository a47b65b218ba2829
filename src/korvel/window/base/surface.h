#pragma once

#include "korvel/window/base/image_list.h"
#include "korvel/window/base/region.h"
#include "korvel/window/base/types.h"

namespace korvel {

enum class LinePattern { Solid, Dotted };

/// What a display paints with: the eight calls under CDC. Coordinates are pixels of the window's
/// client area; text is in the library's code page.
class Surface {
public:
    virtual void Fill(const CRect& rect, COLORREF color) = 0;
    /// `format`: DT_* flags; a text that does not fit ends in an ellipsis with DT_END_ELLIPSIS.
    virtual void Text(const CString& text, const CRect& rect, COLORREF color, UINT format) = 0;
    /// One pixel wide; a horizontal or vertical one leaves its last pixel out.
    virtual void Line(CPoint from, CPoint to, COLORREF color, LinePattern pattern) = 0;
    /// One pixel wide, inside `rect`.
    virtual void Frame(const CRect& rect, COLORREF color) = 0;
    virtual void FocusRect(const CRect& rect) = 0;
    /// Scaled into `rect`.
    virtual void Picture(const Image& image, const CRect& rect) = 0;
    /// Replaces the clip rectangle; null lifts it.
    virtual void Clip(const CRect* rect) = 0;
    /// Clips to a region instead.
    virtual void ClipRegion(const CRgn& region) = 0;

protected:
    ~Surface() = default;
};

} // namespace korvel
