#include "korvel/layout/erase_between_children.h"

#include "korvel/layout/host_controls.h"
#include "korvel/window/core/window.h"
#include "korvel/window/display/window_view.h"

namespace korvel::internal {
namespace {

constexpr LPARAM StaticTypeMask = 0xF;

// A child that is asked whether it erases its background must not do it here.
class BlankSurface final : public Surface {
public:
    void Fill(const CRect&, COLORREF) override {}
    void Text(const CString&, const CRect&, COLORREF, UINT) override {}
    void Line(CPoint, CPoint, COLORREF, LinePattern) override {}
    void Frame(const CRect&, COLORREF) override {}
    void FocusRect(const CRect&) override {}
    void Picture(const Image&, const CRect&) override {}
    void Clip(const CRect*) override {}
    void ClipRegion(const CRgn&) override {}
};

bool ErasesItself(HWND child) {
    BlankSurface blank;
    CDC dc(blank, GetClientRect(child));
    return SendMessageA(child, WM_ERASEBKGND, reinterpret_cast<WPARAM>(&dc), 0) == 1 &&
           IsWindowVisible(child);
}

bool ShowsBackground(HWND child) {
    return (SendMessageA(child, WM_GETDLGCODE, 0, 0) & DLGC_STATIC) &&
           (GetWindowLongPtrA(child, GWL_STYLE) & StaticTypeMask);
}

} // namespace

void EraseBetweenChildren(HWND window, CDC& dc) {
    const CRect client = GetClientRect(window);
    CRgn region;
    region.CreateRectRgn(client);
    for (const HWND child : view::Children(window)) {
        if (!ErasesItself(child))
            continue;
        CRgn covered;
        covered.CreateRectRgn(ClientRectangleOf(child, window));
        region.CombineRgn(region, covered, RGN_XOR);
        if (ShowsBackground(child))
            region.CombineRgn(region, covered, RGN_XOR);
    }
    dc.SelectClipRgn(&region);
    dc.FillSolidRect(client, GetSysColor(COLOR_3DFACE));
    dc.SelectClipRgn(nullptr);
}

} // namespace korvel::internal
