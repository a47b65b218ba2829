#pragma once

#include "korvel/layout/layout_manager_base.h"

namespace korvel {

/// A base of a window class `T`, next to its CWnd, that lays out the window's controls. `T` builds the tree
/// when its controls exist and hands on the messages:
///
///     class CPlanDialog : public CDialog, public CLayoutManager<CPlanDialog> {
///         BOOL OnInitDialog() override {
///             CDialog::OnInitDialog();
///             InitializeLayout();
///             auto* column = new CPaneManager(0, ItemGrowX | ItemGrowY);
///             column->SetRect(clientRect);   // nothing else sets the root's rectangle
///             column->Add(new CBaseItem(m_hWnd, IDC_LIST, ItemGrowX | ItemGrowY));
///             root = column;
///             return 1;
///         }
///         LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
///             if (message == WM_GETMINMAXINFO && LimitTrackSize(*reinterpret_cast<MINMAXINFO*>(lParam)))
///                 return 0;
///             if (message == WM_ERASEBKGND && EraseLayout(reinterpret_cast<CDC*>(wParam)))
///                 return 1;
///             if (message == WM_DESTROY)
///                 DestroyLayout();
///             if ((message == WM_HSCROLL || message == WM_VSCROLL) && lParam == 0)   // of a bar of the window
///                 ScrollLayout(message == WM_HSCROLL ? SB_HORZ : SB_VERT, LOWORD(wParam), HIWORD(wParam));
///             const LRESULT result = CDialog::WindowProc(message, wParam, lParam);
///             if (message == WM_SIZE)
///                 ResizeLayout(LayoutForm::Dialog, LOWORD(lParam), HIWORD(lParam));
///             return result;
///         }
///     };
///
/// Messages before the tree exists, or after it is gone, change nothing. The tree follows the client area
/// below the design size as well, unless `scrollEnabled` is set: then it keeps the design size there, and
/// bars appear. Kept: a resize puts the controls where they are unscrolled, whatever the bars say; the next
/// scrolling moves them from there.
template <class T>
class CLayoutManager : public LayoutManagerBase {
protected:
    /// Reads `clientRect` and `windowRect`: before the tree is built.
    void InitializeLayout() { LayoutManagerBase::InitializeLayout(LayoutHost()); }
    /// WM_SIZE, after the base handler: places the tree in a client area of that size. A size of 0 or below
    /// moves nothing. The dialog form has the window painted again in any case.
    void ResizeLayout(LayoutForm form, int cx, int cy) {
        LayoutManagerBase::ResizeLayout(LayoutHost(), form, cx, cy);
    }
    /// WM_HSCROLL and WM_VSCROLL, before the base handler: moves bar and controls. A page is the extent of
    /// the client area less 10 pixels, a line the tenth of a page. Kept: SB_TOP and SB_BOTTOM go one line
    /// only.
    void ScrollLayout(int bar, UINT code, int thumb) {
        LayoutManagerBase::ScrollLayout(LayoutHost(), bar, code, thumb);
    }
    /// WM_GETMINMAXINFO: the root's stored size, without a frame. False without a tree: the base handler's
    /// turn.
    using LayoutManagerBase::LimitTrackSize;
    /// WM_ERASEBKGND: fills what no visible child covers that paints its own background (it returns 1 to
    /// WM_ERASEBKGND and is no static with a type in its style), and where two of them overlap. False without
    /// a device context: the base handler's turn.
    bool EraseLayout(CDC* dc) const { return LayoutManagerBase::EraseLayout(LayoutHost(), dc); }
    /// WM_DESTROY. A tree that ResizeLayout is moving is deleted once that is done.
    using LayoutManagerBase::DestroyLayout;

private:
    HWND LayoutHost() const { return static_cast<const T*>(this)->m_hWnd; }
};

} // namespace korvel
