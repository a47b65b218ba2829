#include "korvel/window/list/list_column_edit.h"

#include "korvel/window/core/display.h"
#include "korvel/window/list/list_geometry.h"
#include "korvel/window/list/list_metrics.h"
#include "korvel/window/list/list_notify.h"
#include "korvel/window/list/list_rows.h"
#include "korvel/window/list/list_scroll.h"

namespace korvel::internal {

namespace {

template <class Change>
void ForEachStoredText(ListState& list, int column, Change change) {
    for (int row = 0; row < list.rows.Size(); ++row) {
        auto& texts = list.rows.At(row).texts;
        if (texts && column < static_cast<int>(texts->size()))
            change(*texts, texts->begin() + column);
    }
}

int WidthOf(const CString& text) {
    return Display().TextWidth(text) + 2 * CellTextInset;
}

} // namespace

int InsertColumn(ListState& list, int column, ListColumn content) {
    if (column < 0)
        return ListColumns::None;
    const int at = list.columns.Insert(column, std::move(content));
    if (at > 0)
        ForEachStoredText(list, at, [](auto& texts, auto place) { texts.insert(place, CString()); });
    RepaintAll(list);
    UpdateExtent(list);
    return at;
}

void DeleteColumn(ListState& list, int column) {
    list.columns.Erase(column);
    if (column > 0)
        ForEachStoredText(list, column, [](auto& texts, auto place) { texts.erase(place); });
    RepaintAll(list);
    UpdateExtent(list);
}

bool SetColumnWidth(ListState& list, int column, int width) {
    if (!list.columns.Has(column))
        return false;
    if (width == LVSCW_AUTOSIZE)
        width = FittingWidth(list, column);
    else if (width == LVSCW_AUTOSIZE_USEHEADER)
        width = FittingWidthWithTitle(list, column);
    ChangeColumnWidth(list, column, width);
    return true;
}

void ChangeColumnWidth(ListState& list, int column, int width) {
    if (!list.columns.Has(column))
        return; // the text source has removed it while the texts were measured
    const int before = list.columns[column].width;
    list.columns.SetWidth(column, width);
    if (list.columns[column].width == before)
        return;
    RepaintAll(list);
    InvalidateRect(list.header);
    UpdateExtent(list);
    NotifyHeader(list, HDN_ITEMCHANGED, column);
}

int FittingWidth(const ListState& list, int column) {
    int widest = 0;
    for (int row = 0; row < list.rows.Size(); ++row) {
        const int before = column == 0 ? WidthBeforeLabel(list, row) : 0;
        widest = std::max(widest, before + WidthOf(TextOf(list, row, column)));
    }
    return widest;
}

int FittingWidthWithTitle(const ListState& list, int column) {
    const int titleWidth = WidthOf(list.columns[column].title);
    int width = std::max(titleWidth, FittingWidth(list, column));
    if (column == list.columns.Count() - 1)
        width = std::max(width, ClientSize(list).cx - list.columns.Left(column));
    return width;
}

} // namespace korvel::internal
