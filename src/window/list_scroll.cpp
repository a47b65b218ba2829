#include "window/list_scroll.h"

#include "window/header_state.h"
#include "window/list_label_edit.h"

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

void TellScroll(ListState& list) {
    const auto scroll = list.Scroll();
    if (SameScroll(scroll, list.toldScroll))
        return;
    list.toldScroll = scroll;
    TellDisplay(list.record, Aspect::Scroll);
}

// What a handler of WM_SIZE changes is answered by no further WM_SIZE, or two layouts that undo each
// other would never end.
void TellClientSize(ListState& list) {
    const CSize size = ClientSize(list);
    if (size == list.toldClientSize || list.isTellingSize || !list.record.redraw)
        return;
    list.toldClientSize = size;
    list.isTellingSize = true;
    try {
        SendMessageA(list.Handle(), WM_SIZE, 0, MAKELPARAM(size.cx, size.cy));
    } catch (...) {
        list.isTellingSize = false;
        throw;
    }
    list.isTellingSize = false;
}

int Clamped(std::int64_t value, int highest) {
    return static_cast<int>(std::clamp<std::int64_t>(value, 0, highest));
}

/// Where a command of a scroll bar leads.
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

void ScrollTo(ListState& list, int x, int topRow) {
    x = Clamped(x, LastScrollX(list));
    topRow = Clamped(topRow, LastTopRow(list));
    if (x == list.scrollX && topRow == list.topRow)
        return;
    EndLabelEdit(list, LabelEditEnd::Take);
    list.scrollX = x;
    list.topRow = topRow;
    PlaceHeader(list);
    TellScroll(list);
    RepaintAll(list);
}

void ScrollBy(ListState& list, CSize size) {
    const auto x = std::int64_t{list.scrollX} + size.cx;
    const auto row = std::int64_t{list.topRow} + size.cy / RowHeight(list);
    ScrollTo(list, Clamped(x, LastScrollX(list)), Clamped(row, LastTopRow(list)));
}

void EnsureVisible(ListState& list, int row, Visibility wanted) {
    const int page = std::max(1, RowsPerPage(list));
    if (row < list.topRow)
        return ScrollTo(list, list.scrollX, row);
    if (row < list.topRow + page)
        return;
    if (wanted == Visibility::Part && RowBounds(list, row).top < ClientSize(list).cy)
        return;
    ScrollTo(list, list.scrollX, row - page + 1);
}

void EnsureColumnVisible(ListState& list, int column) {
    const int left = list.columns.Left(column);
    const int right = left + list.columns[column].width;
    const int x = std::min(std::max(list.scrollX, right - ClientSize(list).cx), left);
    ScrollTo(list, x, list.topRow);
}

void HandleScrollBar(ListState& list, UINT message, UINT command) {
    if (message == WM_VSCROLL) {
        const auto row =
            Target(command, list.topRow, 1, std::max(1, RowsPerPage(list)), list.trackedScroll.y);
        ScrollTo(list, list.scrollX, Clamped(row, LastTopRow(list)));
    } else {
        const auto x = Target(command, list.scrollX, LineWidth, ClientSize(list).cx, list.trackedScroll.x);
        ScrollTo(list, Clamped(x, LastScrollX(list)), list.topRow);
    }
}

bool TurnWheel(ListState& list, int delta) {
    if (LastTopRow(list) == 0)
        return false;
    list.wheelRest += delta * RowsPerNotch;
    const int rows = list.wheelRest / WheelNotch;
    list.wheelRest -= rows * WheelNotch;
    ScrollTo(list, list.scrollX, list.topRow - rows);
    return true;
}

void UpdateExtent(ListState& list) {
    ScrollTo(list, list.scrollX, list.topRow);
    TellClientSize(list);
    PlaceHeader(list);
    TellScroll(list);
}

void RepaintAll(ListState& list) {
    Repaint(list.record);
}

void RepaintRows(ListState& list, int first, int last) {
    if (first >= last)
        return;
    const CSize client = ClientSize(list);
    const CRect area{0, std::max(RowBounds(list, first).top, HeaderHeight(list)), client.cx,
                     std::min(RowBounds(list, last - 1).bottom, client.cy)};
    if (!area.IsRectEmpty())
        Repaint(list.record, &area);
}

void RepaintFrom(ListState& list, int row) {
    const CSize client = ClientSize(list);
    const CRect area{0, std::max(RowBounds(list, row).top, HeaderHeight(list)), client.cx, client.cy};
    if (!area.IsRectEmpty())
        Repaint(list.record, &area);
}

} // namespace korvel::internal
