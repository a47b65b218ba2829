#pragma once

#include "korvel/window/base/messages.h"
#include "korvel/window/base/surface.h"

#include <utility>

namespace korvel {

/// A device context: the surface with the current colours and pen.
class KORVEL_API CDC {
public:
    explicit CDC(Surface& surface, CRect clip) : m_surface(surface), m_clip(clip) {}

    /// The area that is being repainted; nothing outside it needs drawing.
    const CRect& GetClipBox() const { return m_clip; }

    COLORREF SetTextColor(COLORREF color) { return std::exchange(m_textColor, color); }
    COLORREF SetBkColor(COLORREF color) { return std::exchange(m_backColor, color); }
    COLORREF GetTextColor() const { return m_textColor; }
    COLORREF GetBkColor() const { return m_backColor; }
    void SelectPen(int style, COLORREF color); // PS_SOLID, PS_DOT; one pixel wide

    void FillSolidRect(const CRect& rect, COLORREF color) { m_surface.Fill(rect, color); }
    void DrawText(const CString& text, const CRect& rect, UINT format) {
        m_surface.Text(text, rect, m_textColor, format);
    }
    void MoveTo(CPoint point) { m_position = point; }
    void LineTo(CPoint point);
    /// Filled with the background colour and outlined with the pen.
    void Rectangle(const CRect& rect);
    void FrameRect(const CRect& rect, COLORREF color) { m_surface.Frame(rect, color); }
    void DrawFocusRect(const CRect& rect) { m_surface.FocusRect(rect); }
    void DrawImage(const Image& image, const CRect& rect) { m_surface.Picture(image, rect); }
    void IntersectClipRect(const CRect& rect) { m_surface.Clip(&rect); }
    void ResetClip() { m_surface.Clip(nullptr); }
    /// DFC_BUTTON with DFCS_BUTTONCHECK or DFCS_BUTTONPUSH, and DFC_SCROLL with DFCS_SCROLLDOWN, in
    /// today's flat look: composed of the calls above, in the system colours.
    void DrawFrameControl(const CRect& rect, UINT type, UINT state);

private:
    Surface& m_surface;
    CRect m_clip;
    CPoint m_position;
    COLORREF m_textColor = 0;
    COLORREF m_backColor = 0xFFFFFF;
    COLORREF m_penColor = 0;
    LinePattern m_pattern = LinePattern::Solid;
};

/// What WM_DRAWITEM carries (lParam).
struct DRAWITEMSTRUCT {
    UINT CtlType = 0; // ODT_*
    UINT CtlID = 0;
    UINT itemID = 0;    // the row of a list
    UINT itemState = 0; // ODS_*
    HWND hwndItem = nullptr;
    CDC* hDC = nullptr;
    CRect rcItem;
};

} // namespace korvel
