#include "korvel/layout/layout_manager_base.h"

#include "korvel/layout/erase_between_children.h"
#include "korvel/layout/scroll_step.h"
#include "korvel/layout/wrapping.h"
#include "korvel/platform/raised_flag.h"
#include "korvel/window/core/dc.h"
#include "korvel/window/core/scroll_bar.h"
#include "korvel/window/core/window.h"

#include <cstdint>
#include <limits>
#include <utility>

namespace korvel {

using namespace internal;

namespace {

std::int64_t Width(const RECT& rect) {
    return std::int64_t{rect.right} - rect.left;
}

std::int64_t Height(const RECT& rect) {
    return std::int64_t{rect.bottom} - rect.top;
}

// Sets a bar to what does not fit, and scrolls the content where that is less than before. `isShown` is right
// also when a handler of the client area's new size throws.
void UpdateBar(HWND host, int bar, std::int64_t missing, bool& isShown) {
    const int maximum =
        static_cast<int>(std::clamp<std::int64_t>(missing, 0, std::numeric_limits<int>::max()));
    const int former = GetScrollPos(host, bar);
    const int position = std::min(maximum, former);
    const int distance = WrappingDifference(former, position);
    if (bar == SB_HORZ)
        ScrollWindow(host, distance, 0);
    else
        ScrollWindow(host, 0, distance);
    SetScrollPos(host, bar, position);
    isShown = maximum > 0;
    SetScrollRange(host, bar, 0, maximum);
}

} // namespace

LayoutManagerBase::~LayoutManagerBase() {
    delete root;
}

void LayoutManagerBase::InitializeLayout(HWND host) {
    clientRect = GetClientRect(host);
    windowRect = GetWindowRect(host);
}

void LayoutManagerBase::ResizeLayout(HWND host, LayoutForm form, int cx, int cy) {
    if (cx >= 1 && cy >= 1 && root && !(scrollEnabled && inScrollUpdate))
        LayOut(host, {0, 0, cx, cy});
    if (form == LayoutForm::Dialog)
        RedrawWindow(host, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

void LayoutManagerBase::LayOut(HWND host, RECT rect) {
    if (scrollEnabled) {
        const RaisedFlag updating(inScrollUpdate);
        // Kept: both bars give back the height of the horizontal one, also where the vertical one's width
        // differs.
        const int room = GetSystemMetrics(SM_CYHSCROLL);
        if (vBarShown)
            rect.right = WrappingSum(rect.right, room);
        if (hBarShown)
            rect.bottom = WrappingSum(rect.bottom, room);
        rect = UpdateScrollBars(host, rect, false, false);
        if (Width(rect) < Width(clientRect))
            rect.right = WrappingSum(rect.left, WrappingDifference(clientRect.right, clientRect.left));
        if (Height(rect) < Height(clientRect))
            rect.bottom = WrappingSum(rect.top, WrappingDifference(clientRect.bottom, clientRect.top));
    }
    if (!root) // a handler may have destroyed the window
        return;
    struct Move {
        explicit Move(LayoutManagerBase& layout) : manager(layout) { ++manager.m_moves; }
        ~Move() {
            if (--manager.m_moves == 0)
                manager.m_finished.clear();
        }
        LayoutManagerBase& manager;
    } const move(*this);
    root->MoveTo(rect);
}

// Each bar that is needed takes room from the other direction, so the question is asked once more.
RECT LayoutManagerBase::UpdateScrollBars(HWND host, RECT rect, bool hTried, bool vTried) {
    if (Width(rect) < Width(clientRect) && !hTried) {
        // Kept: the bar across takes the width of its arrows, which may differ from its height.
        rect.bottom = WrappingDifference(rect.bottom, GetSystemMetrics(SM_CXHSCROLL));
        return UpdateScrollBars(host, rect, true, vTried);
    }
    if (Height(rect) < Height(clientRect) && !vTried) {
        rect.right = WrappingDifference(rect.right, GetSystemMetrics(SM_CXVSCROLL));
        return UpdateScrollBars(host, rect, hTried, true);
    }
    UpdateBar(host, SB_HORZ, Width(clientRect) - Width(rect), hBarShown);
    UpdateBar(host, SB_VERT, Height(clientRect) - Height(rect), vBarShown);
    return rect;
}

void LayoutManagerBase::ScrollLayout(HWND host, int bar, UINT code, int thumb) {
    if (root)
        ScrollByCode(host, bar, code, thumb);
}

bool LayoutManagerBase::LimitTrackSize(MINMAXINFO& limits) const {
    if (!root)
        return false;
    const RECT& design = *root->GetRect();
    limits.ptMinTrackSize = {WrappingDifference(design.right, design.left),
                             WrappingDifference(design.bottom, design.top)};
    return true;
}

bool LayoutManagerBase::EraseLayout(HWND host, CDC* dc) const {
    if (!dc)
        return false;
    EraseBetweenChildren(host, *dc);
    return true;
}

void LayoutManagerBase::DestroyLayout() {
    std::unique_ptr<IItem> former(std::exchange(root, nullptr));
    if (m_moves > 0)
        m_finished.push_back(std::move(former));
}

} // namespace korvel
