#include "korvel/window/list/list_reading.h"

#include "korvel/window/base/list_view.h"
#include "korvel/window/list/followed_row.h"
#include "korvel/window/list/list_geometry.h"
#include "korvel/window/list/list_mouse.h"
#include "korvel/window/list/list_rows.h"
#include "korvel/window/list/list_scroll.h"
#include "korvel/window/list/list_selection.h"

namespace korvel::internal {

namespace {

void Read(const ListState& list, view::ListView& view) {
    view.rowCount = list.rows.Size();
    view.columnCount = list.columns.Count();
    view.current.row = list.focusRow;
    view.header = list.header;
    view.selectsMany = !list.HasStyle(LVS_SINGLESEL);
    if (list.labelEdit.window && list.rows.Has(list.labelEdit.row))
        view.edited = {list.labelEdit.row, 0};
}

CRect TitleBounds(const ListState& list, int column) {
    return {list.columns.Left(column) - list.scrollX, 0, list.columns.Left(column + 1) - list.scrollX,
            HeaderHeight(list)};
}

view::CellPlace PlaceAt(const ListState& list, CPoint point) {
    const CSize client = ClientSize(list);
    const bool isTitle = point.x >= 0 && point.x < client.cx && point.y >= 0 && point.y < HeaderHeight(list);
    if (isTitle)
        return {view::TitleRow, list.columns.At(point.x + list.scrollX)};
    const ListHit hit = HitTest(list, point);
    return {hit.row, hit.row == NoRow ? ListColumns::None : hit.column};
}

void ReadTitle(const ListState& list, view::CellView& cell) {
    cell.bounds = TitleBounds(list, cell.at.column);
    cell.text = list.columns[cell.at.column].title;
}

// The text comes last: its source may remove the row. False: the row is not there any more.
bool ReadRow(ListState& list, view::CellView& cell) {
    FollowedRow row(list, cell.at.row);
    const RowRecord& record = list.rows.At(row.row);
    cell.bounds = PartsOfCell(list, row.row, cell.at.column).bounds;
    cell.data = record.data;
    cell.level = static_cast<int>(record.indent) + 1;
    cell.selected = record.IsSelected();
    cell.readOnly = cell.at.column != 0 || !list.HasStyle(LVS_EDITLABELS);
    if (cell.at.column == 0 && list.HasExtendedStyle(LVS_EX_CHECKBOXES))
        cell.checked = record.checked;
    cell.text = TextOf(list, row.row, cell.at.column);
    return row.row == cell.at.row;
}

bool Read(ListState& list, view::CellView& cell) {
    const auto [row, column] = cell.at;
    if (!list.columns.Has(column) || (row != view::TitleRow && !list.rows.Has(row)))
        return false;
    if (row != view::TitleRow)
        return ReadRow(list, cell);
    return ReadTitle(list, cell), true;
}

bool Choose(ListState& list, view::CellPlace place) {
    if (!list.rows.Has(place.row) || !list.columns.Has(place.column))
        return false;
    FollowedRow row(list, place.row);
    if (!BeginPress(list.Handle()) || !row.IsThere() ||
        !MoveSelection(list, row.row, SelectionChange::Replace) || !row.IsThere())
        return false;
    EnsureVisible(list, row.row, Visibility::Whole);
    return true;
}

} // namespace

std::optional<LRESULT> HandleReading(ListState& list, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!lParam)
        return std::nullopt;
    switch (message) {
    case LVM_KORVEL_READLIST:
        return Read(list, *reinterpret_cast<view::ListView*>(lParam)), 1;
    case LVM_KORVEL_READCELL: {
        list.areCellsRead = true;
        auto& cell = *reinterpret_cast<view::CellView*>(lParam);
        if (wParam != 0)
            cell.at = PlaceAt(list, {cell.bounds.left, cell.bounds.top});
        return Read(list, cell);
    }
    case LVM_KORVEL_CHOOSECELL:
        return Choose(list, *reinterpret_cast<const view::CellPlace*>(lParam));
    default:
        return std::nullopt;
    }
}

} // namespace korvel::internal
