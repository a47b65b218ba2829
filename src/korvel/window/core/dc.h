#pragma once

#include "korvel/window/base/messages.h"
#include "korvel/window/base/surface.h"

#include <utility>

namespace korvel {

/// A device context: the surface with the current colors and pen. Lives for one WM_PAINT or WM_DRAWITEM.
///
///     LRESULT CSwatch::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
///         if (message != WM_PAINT)
///             return CWnd::WindowProc(message, wParam, lParam);
///         CDC& dc = *reinterpret_cast<CDC*>(wParam);
///         dc.FillSolidRect(GetClientRect(), RGB(255, 0, 0));
///         return 0;
///     }
class KORVEL_API CDC {
public:
    explicit CDC(Surface& surface, CRect clip) : m_surface(surface), m_clip(clip) {}

    /// The area that is being repainted; nothing outside it needs drawing.
    const CRect& GetClipBox() const { return m_clip; }

    /// The setters return the former color.
    COLORREF SetTextColor(COLORREF color) { return std::exchange(m_textColor, color); }
    COLORREF SetBkColor(COLORREF color) { return std::exchange(m_backColor, color); }
    COLORREF GetTextColor() const { return m_textColor; }
    COLORREF GetBkColor() const { return m_backColor; }
    void SelectPen(int style, COLORREF color); // PS_SOLID, PS_DOT; one pixel wide

    void FillSolidRect(const CRect& rect, COLORREF color) { m_surface.Fill(rect, color); }
    /// In the text color; `format` is DT_*.
    void DrawText(const CString& text, const CRect& rect, UINT format) {
        m_surface.Text(text, rect, m_textColor, format);
    }
    void MoveTo(CPoint point) { m_position = point; }
    /// With the pen, without the last pixel.
    void LineTo(CPoint point);
    /// Filled with the background color and outlined with the pen.
    void Rectangle(const CRect& rect);
    void FrameRect(const CRect& rect, COLORREF color) { m_surface.Frame(rect, color); }
    void DrawFocusRect(const CRect& rect) { m_surface.FocusRect(rect); }
    /// Scaled into `rect`.
    void DrawImage(const Image& image, const CRect& rect) { m_surface.Picture(image, rect); }
    /// Replaces the former clip rectangle.
    void IntersectClipRect(const CRect& rect) { m_surface.Clip(&rect); }
    /// The same with a region; null lifts it.
    void SelectClipRgn(const CRgn* region) {
        region ? m_surface.ClipRegion(*region) : m_surface.Clip(nullptr);
    }
    void ResetClip() { m_surface.Clip(nullptr); }
    /// DFC_BUTTON with DFCS_BUTTONCHECK or DFCS_BUTTONPUSH, and DFC_SCROLL with one of DFCS_SCROLL*, in a
    /// flat look, in the system colors. Pen, position and colors stay.
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
