#include "korvel/window/core/dc.h"
#include "korvel/window/core/window_class.h"
#include "korvel/window/list/header_state.h"
#include "korvel/window/list/list_column_edit.h"
#include "korvel/window/list/list_metrics.h"
#include "korvel/window/list/list_notify.h"

#include <utility>

namespace korvel::internal {

namespace {

// A header together with the list whose columns it shows.
struct Header {
    HWND window;
    HeaderState& state;
    ListState& list;
};

// Where the pointer is over the list: the header itself moves when the list scrolls during a drag.
int XOverList(Header header, CPoint point) {
    return point.x - header.list.scrollX;
}

void BeginTrack(Header header, int column, CPoint point) {
    if (NotifyHeader(header.list, HDN_BEGINTRACK, column) != 0 || !header.list.columns.Has(column))
        return;
    header.state.trackedColumn = column;
    header.state.trackStart = XOverList(header, point);
    header.state.widthAtStart = header.list.columns[column].width;
    SetCapture(header.window);
}

// The column may be gone meanwhile; the end of the drag is sent all the same.
void EndTrack(Header header) {
    const int column = std::exchange(header.state.trackedColumn, ListColumns::None);
    if (column == ListColumns::None)
        return;
    if (GetCapture() == header.window)
        ReleaseCapture();
    NotifyHeader(header.list, HDN_ENDTRACK, column);
}

void Press(Header header, CPoint point) {
    const int divider = header.list.columns.DividerAt(point.x);
    if (divider != ListColumns::None)
        BeginTrack(header, divider, point);
    else
        header.state.pressedColumn = header.list.columns.At(point.x);
}

void Move(Header header, CPoint point) {
    const int column = header.state.trackedColumn;
    if (header.list.columns.Has(column)) {
        const int moved = XOverList(header, point) - header.state.trackStart;
        ChangeColumnWidth(header.list, column, header.state.widthAtStart + moved);
        return;
    }
    const bool overDivider = header.list.columns.DividerAt(point.x) != ListColumns::None;
    SetCursor(overDivider ? IDC_SIZEWE : IDC_ARROW);
}

void Release(Header header, CPoint point) {
    if (header.state.trackedColumn != ListColumns::None)
        return EndTrack(header);
    const int pressed = std::exchange(header.state.pressedColumn, ListColumns::None);
    if (pressed != ListColumns::None && pressed == header.list.columns.At(point.x))
        NotifyRow(header.list, LVN_COLUMNCLICK, NoRow, pressed);
}

// The first press of the double click has begun and ended a drag already; the end that is sent here lets a
// host store the fitted width as it stores a dragged one.
void Fit(Header header, CPoint point) {
    const int divider = header.list.columns.DividerAt(point.x);
    if (divider == ListColumns::None)
        return Press(header, point);
    ChangeColumnWidth(header.list, divider, FittingWidth(header.list, divider));
    NotifyHeader(header.list, HDN_ENDTRACK, divider);
}

void PaintHeader(Header header, CDC& dc) {
    const CRect client = GetClientRect(header.window);
    const COLORREF shadow = GetSysColor(COLOR_BTNSHADOW);
    dc.FillSolidRect(client, GetSysColor(COLOR_BTNFACE));
    dc.SetTextColor(GetSysColor(COLOR_BTNTEXT));
    for (int column = 0; column < header.list.columns.Count(); ++column) {
        const int left = header.list.columns.Left(column);
        const int right = header.list.columns.Left(column + 1);
        CRect text{left, client.top, right, client.bottom};
        text.DeflateRect(CellTextInset, 0);
        if (!text.Intersected(dc.GetClipBox()).IsRectEmpty())
            dc.DrawText(header.list.columns[column].title, text, header.list.columns.DrawFormat(column));
        dc.FillSolidRect({right - 1, client.top, right, client.bottom}, shadow);
    }
    dc.FillSolidRect({client.left, client.bottom - 1, client.right, client.bottom}, shadow);
}

LRESULT HeaderProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const ControlOf<HeaderState> state(window);
    const ControlOf<ListState> list(GetParent(window));
    if (!state || !list)
        return DefWindowProcA(window, message, wParam, lParam);
    const Header header{window, *state, *list};
    switch (message) {
    case HDM_GETITEMCOUNT:
        return list->columns.Count();
    case WM_PAINT:
        PaintHeader(header, *reinterpret_cast<CDC*>(wParam));
        return 0;
    case WM_ERASEBKGND:
    case WM_SETCURSOR: // the move that follows sets it
        return 1;
    case WM_LBUTTONDOWN:
        Press(header, PointOf(lParam));
        return 0;
    case WM_LBUTTONDBLCLK:
        Fit(header, PointOf(lParam));
        return 0;
    case WM_MOUSEMOVE:
        Move(header, PointOf(lParam));
        return 0;
    case WM_LBUTTONUP:
        Release(header, PointOf(lParam));
        return 0;
    case WM_CAPTURECHANGED:
        EndTrack(header);
        return 0;
    case WM_MOUSEWHEEL:
        return SendMessageA(list->Handle(), message, wParam, lParam);
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

[[maybe_unused]] const bool Registered = RegisterControlClass<HeaderState>("SysHeader32", HeaderProcedure);

} // namespace

} // namespace korvel::internal
