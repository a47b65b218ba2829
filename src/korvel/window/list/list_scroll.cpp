#include "korvel/window/list/list_scroll.h"

#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/window_changes.h"
#include "korvel/window/core/window_rectangle.h"
#include "korvel/window/list/list_header.h"

#include <limits>

namespace korvel::internal {

namespace {

constexpr int RowsPerNotch = 3;
constexpr int WheelNotch = 120; // the delta of one notch in WM_MOUSEWHEEL
constexpr int LineWidth = 16;   // pixels that one step of the horizontal bar scrolls

bool SameScroll(const view::ScrollView& a, const view::ScrollView& b) {
    return a.x == b.x && a.contentWidth == b.contentWidth && a.pageWidth == b.pageWidth &&
           a.topRow == b.topRow && a.rowCount == b.rowCount && a.rowsPerPage == b.rowsPerPage;
}

void TellScroll(ListState& list, const ListLayout& layout) {
    const auto scroll = ScrollOf(list, layout);
    if (SameScroll(scroll, list.toldScroll))
        return;
    list.toldScroll = scroll;
    TellDisplay(list.record, Aspect::Scroll);
}

// What a handler of WM_SIZE changes leads to no further WM_SIZE, or two layouts that undo each other would
// never end.
void TellClientSize(ListState& list, CSize size) {
    if (list.isTellingSize)
        return;
    list.toldClientSize = size;
    list.areRowsInvalid = false; // there may be more room for rows
    list.isTellingSize = true;
    try {
        TellSize(list.record);
    } catch (...) {
        list.isTellingSize = false;
        throw;
    }
    list.isTellingSize = false;
}

void TellCellsMoved(ListState& list) {
    if (list.labelEdit.follow)
        list.labelEdit.follow(list);
    if (const auto tell = list.cellsMoved)
        (*tell)();
}

int Clamped(std::int64_t value, int highest) {
    return static_cast<int>(std::clamp<std::int64_t>(value, 0, highest));
}

// Where a command of a scroll bar leads.
std::int64_t Target(UINT command, int now, int line, int page, int tracked) {
    switch (command) {
    case SB_LINEUP:
        return std::int64_t{now} - line;
    case SB_LINEDOWN:
        return std::int64_t{now} + line;
    case SB_PAGEUP:
        return std::int64_t{now} - page;
    case SB_PAGEDOWN:
        return std::int64_t{now} + page;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK:
        return tracked;
    case SB_TOP:
        return 0;
    case SB_BOTTOM:
        return std::numeric_limits<int>::max();
    default:
        return now;
    }
}

} // namespace

// The user's scrolling passes the window's procedure, which may want to end an edit in a cell.
void ListState::Scrolled(int x, int row) {
    trackedScroll = {x, row};
    if (row != topRow)
        SendMessageA(Handle(), WM_VSCROLL, SB_THUMBTRACK, 0);
    if (x != scrollX)
        SendMessageA(Handle(), WM_HSCROLL, SB_THUMBTRACK, 0);
}

void ScrollTo(ListState& list, std::int64_t x, std::int64_t topRow) {
    ListLayout layout = LayoutOf(list);
    const int newX = Clamped(x, layout.lastScrollX);
    const int newTopRow = Clamped(topRow, layout.lastTopRow);
    if (newX == list.scrollX && newTopRow == list.topRow)
        return;
    list.scrollX = newX;
    list.topRow = newTopRow;
    if (list.labelEdit.window) {
        list.EndLabelEdit(LabelEditEnd::Take);
        layout = LayoutOf(list); // a handler may have changed columns and rows
    }
    PlaceHeader(list, layout.client.cx);
    TellScroll(list, layout);
    RepaintAll(list);
    TellCellsMoved(list);
}

void ScrollBy(ListState& list, CSize size) {
    ScrollTo(list, std::int64_t{list.scrollX} + size.cx,
             std::int64_t{list.topRow} + size.cy / RowHeight(list));
}

void EnsureVisible(ListState& list, int row, Visibility wanted) {
    const ListLayout layout = LayoutOf(list);
    const int page = std::max(1, layout.rowsPerPage);
    if (row < list.topRow)
        return ScrollTo(list, list.scrollX, row);
    if (row < list.topRow + page)
        return;
    if (wanted == Visibility::Part && RowBounds(list, row).top < layout.client.cy)
        return;
    ScrollTo(list, list.scrollX, row - page + 1);
}

void HandleScrollBar(ListState& list, UINT message, UINT command) {
    const ListLayout layout = LayoutOf(list);
    const CPoint tracked = list.trackedScroll;
    if (message == WM_VSCROLL)
        ScrollTo(list, list.scrollX,
                 Target(command, list.topRow, 1, std::max(1, layout.rowsPerPage), tracked.y));
    else
        ScrollTo(list, Target(command, list.scrollX, LineWidth, layout.client.cx, tracked.x), list.topRow);
}

bool TurnWheel(ListState& list, int delta) {
    if (LayoutOf(list).lastTopRow == 0)
        return false;
    list.wheelRest += delta * RowsPerNotch;
    const int rows = list.wheelRest / WheelNotch;
    list.wheelRest -= rows * WheelNotch;
    ScrollTo(list, list.scrollX, std::int64_t{list.topRow} - rows);
    return true;
}

void UpdateExtent(ListState& list) {
    if (!list.record.redraw)
        return;
    ListLayout layout = LayoutOf(list);
    if (list.scrollX > layout.lastScrollX || list.topRow > layout.lastTopRow)
        ScrollTo(list, list.scrollX, list.topRow);
    if (layout.client != list.toldClientSize) {
        TellClientSize(list, layout.client);
        layout = LayoutOf(list); // a handler may have changed columns and rows
    }
    PlaceHeader(list, layout.client.cx);
    TellScroll(list, layout);
    TellCellsMoved(list);
}

void UpdateExtentForNewRows(ListState& list) {
    if (!list.record.redraw)
        return;
    if (list.toldScroll.rowCount <= list.toldScroll.rowsPerPage)
        return UpdateExtent(list);
    list.toldScroll.rowCount = list.rows.Size();
    TellDisplay(list.record, Aspect::Rows);
    TellCellsMoved(list);
}

void RepaintAll(ListState& list) {
    Repaint(list.record);
}

void TellRowsThatAreRead(ListState& list, int first, int removed, int inserted) {
    if (IsOnDisplay(list.record))
        Display().RowsChanged(list.Handle(), first, removed, inserted);
}

void RepaintRows(ListState& list, int first, int last) {
    if (first < last)
        TellRows(list, std::max(first, 0), last - std::max(first, 0), last - std::max(first, 0));
    if (first >= last || !list.record.redraw)
        return;
    const CSize client = ClientSize(list);
    const CRect area{0, std::max(RowBounds(list, first).top, HeaderHeight(list)), client.cx,
                     std::min(RowBounds(list, last - 1).bottom, client.cy)};
    if (!area.IsRectEmpty())
        Repaint(list.record, &area);
}

void RepaintFrom(ListState& list, int row) {
    const bool isAll = row <= list.topRow;
    if (!list.record.redraw || (isAll && list.areRowsInvalid))
        return;
    const CSize client = ClientSize(list);
    const CRect area{0, std::max(RowBounds(list, row).top, HeaderHeight(list)), client.cx, client.cy};
    if (!area.IsRectEmpty() && Repaint(list.record, &area))
        list.areRowsInvalid |= isAll;
}

} // namespace korvel::internal
