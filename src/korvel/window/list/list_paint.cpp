#include "korvel/window/list/list_paint.h"

#include "korvel/window/core/dc.h"
#include "korvel/window/core/display.h"
#include "korvel/window/list/list_geometry.h"
#include "korvel/window/list/list_metrics.h"
#include "korvel/window/list/list_rows.h"
#include "korvel/window/list/list_selection.h"

namespace korvel::internal {

namespace {

struct RowColors {
    COLORREF text;
    COLORREF background;
    bool isMarked; // shows its selection
};

COLORREF BackgroundOf(const ListState& list) {
    return GetSysColor(list.record.IsSwitchedOn() ? COLOR_WINDOW : COLOR_BTNFACE);
}

RowColors ColorsOf(const ListState& list, int row) {
    if (!list.record.IsSwitchedOn())
        return {GetSysColor(COLOR_GRAYTEXT), BackgroundOf(list), false};
    const bool isSelected = list.rows.At(row).IsSelected();
    if (isSelected && GetFocus() == list.Handle())
        return {GetSysColor(COLOR_HIGHLIGHTTEXT), GetSysColor(COLOR_HIGHLIGHT), true};
    if (isSelected && list.HasStyle(LVS_SHOWSELALWAYS))
        return {GetSysColor(COLOR_BTNTEXT), GetSysColor(COLOR_BTNFACE), true};
    return {GetSysColor(COLOR_WINDOWTEXT), BackgroundOf(list), false};
}

// Without the full row style the selection is shown on the label alone.
CRect MarkRect(const ListState& list, int row) {
    return list.HasExtendedStyle(LVS_EX_FULLROWSELECT) ? RowBounds(list, row)
                                                       : PartsOfCell(list, row, 0).label;
}

void PaintCheckBox(const ListState& list, int row, const CRect& room, CDC& dc) {
    UINT state = DFCS_BUTTONCHECK;
    if (list.rows.At(row).checked)
        state |= DFCS_CHECKED;
    if (!list.record.IsSwitchedOn())
        state |= DFCS_INACTIVE;
    dc.DrawFrameControl(room.Centered({CheckBoxSize, CheckBoxSize}), DFC_BUTTON, state);
}

void PaintCell(const ListState& list, int row, int column, const RowColors& colors, CDC& dc) {
    const CellParts parts = PartsOfCell(list, row, column);
    if (parts.bounds.Intersected(dc.GetClipBox()).IsRectEmpty())
        return;
    if (!parts.stateIcon.IsRectEmpty())
        PaintCheckBox(list, row, parts.stateIcon, dc);
    const Image* image = list.images ? list.images->GetImage(list.rows.At(row).image) : nullptr;
    if (image && !parts.icon.IsRectEmpty())
        dc.DrawImage(*image, parts.icon.Centered({image->width, image->height}));
    CRect text = parts.label;
    text.DeflateRect(CellTextInset, 0);
    if (text.IsRectEmpty())
        return;
    const bool onMark = colors.isMarked && (column == 0 || list.HasExtendedStyle(LVS_EX_FULLROWSELECT));
    dc.SetTextColor(colors.isMarked && !onMark ? GetSysColor(COLOR_WINDOWTEXT) : colors.text);
    dc.DrawText(TextOf(list, row, column), text, list.columns.DrawFormat(column));
}

void PaintRow(const ListState& list, int row, CDC& dc) {
    const RowColors colors = ColorsOf(list, row);
    if (colors.isMarked)
        dc.FillSolidRect(MarkRect(list, row), colors.background);
    // The text source may remove the row.
    for (int column = 0; column < list.columns.Count() && list.rows.Has(row); ++column)
        PaintCell(list, row, column, colors, dc);
    if (row == list.focusRow && GetFocus() == list.Handle())
        dc.DrawFocusRect(MarkRect(list, row));
}

void SendDrawItem(const ListState& list, int row, CDC& dc) {
    DRAWITEMSTRUCT item;
    item.CtlType = ODT_LISTVIEW;
    item.CtlID = static_cast<UINT>(list.record.id);
    item.itemID = static_cast<UINT>(row);
    if (list.rows.At(row).IsSelected())
        item.itemState |= ODS_SELECTED;
    if (row == list.focusRow && GetFocus() == list.Handle())
        item.itemState |= ODS_FOCUS;
    if (!list.record.IsSwitchedOn())
        item.itemState |= ODS_DISABLED;
    item.hwndItem = list.Handle();
    item.hDC = &dc;
    item.rcItem = RowBounds(list, row);
    SendMessageA(GetParent(list.Handle()), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
}

void PaintGridLines(const ListState& list, CDC& dc) {
    const CSize client = ClientSize(list);
    const COLORREF color = GetSysColor(COLOR_BTNFACE);
    const int top = HeaderHeight(list);
    for (int bottom = top + RowHeight(list); bottom <= client.cy; bottom += RowHeight(list))
        dc.FillSolidRect({0, bottom - 1, client.cx, bottom}, color);
    for (int column = 1; column <= list.columns.Count(); ++column) {
        const int right = list.columns.Left(column) - list.scrollX;
        dc.FillSolidRect({right - 1, top, right, client.cy}, color);
    }
}

} // namespace

// A label that does not fit is shown whole beside the pointer.
CString ListState::Tip(CPoint point) {
    const ListHit hit = HasExtendedStyle(LVS_EX_LABELTIP) ? HitTest(*this, point) : ListHit();
    if (!rows.Has(hit.row) || hit.flags != LVHT_ONITEMLABEL)
        return {};
    const CSize client = ClientSize(*this);
    const CRect label =
        PartsOfCell(*this, hit.row, hit.column).label.Intersected({0, 0, client.cx, client.cy});
    CString text = TextOf(*this, hit.row, hit.column);
    return Display().TextWidth(text) > label.Width() - 2 * CellTextInset ? text : CString();
}

void PaintList(ListState& list, CDC& dc) {
    dc.FillSolidRect(dc.GetClipBox(), BackgroundOf(list));
    const RowSpan span = RowsIn(list, dc.GetClipBox());
    for (int row = span.first; row < span.last && list.rows.Has(row); ++row)
        if (list.HasStyle(LVS_OWNERDRAWFIXED))
            SendDrawItem(list, row, dc);
        else
            PaintRow(list, row, dc);
    if (list.HasExtendedStyle(LVS_EX_GRIDLINES))
        PaintGridLines(list, dc);
}

} // namespace korvel::internal
