#include "korvel/window/list/list_item_messages.h"

#include "korvel/platform/code_page.h"
#include "korvel/window/list/followed_row.h"
#include "korvel/window/list/list_column_edit.h"
#include "korvel/window/list/list_geometry.h"
#include "korvel/window/list/list_rows.h"
#include "korvel/window/list/list_scroll.h"
#include "korvel/window/list/list_selection.h"

#include <cstring>
#include <utility>

namespace korvel::internal {

namespace {

template <class Record>
Record* At(LPARAM address) {
    return reinterpret_cast<Record*>(address);
}

// Returns the bytes copied, without the zero that ends them.
LRESULT CopyTo(char* target, int room, const CString& text) {
    if (!target || room <= 0)
        return 0;
    const auto copied = platform::CutCharacters(text, static_cast<std::size_t>(room) - 1);
    std::memcpy(target, copied.data(), copied.size());
    target[copied.size()] = '\0';
    return static_cast<LRESULT>(copied.size());
}

// --- rows ---

LRESULT Insert(ListState& list, const LVITEM* item) {
    if (!item || item->iSubItem != 0)
        return NoRow;
    ListRow content;
    if ((item->mask & LVIF_TEXT) && item->pszText)
        content.text = item->pszText;
    if (item->mask & LVIF_PARAM)
        content.data = item->lParam;
    if (item->mask & LVIF_IMAGE)
        content.image = item->iImage;
    if (item->mask & LVIF_INDENT)
        content.indent = item->iIndent;
    const InsertedRow inserted = InsertRow(list, item->iItem, content);
    if (inserted.isThere && (item->mask & LVIF_STATE))
        SetState(list, inserted.row, item->state, item->stateMask);
    return inserted.row;
}

LRESULT Get(const ListState& list, LVITEM* item) {
    if (!item || !list.rows.Has(item->iItem) || item->iSubItem < 0)
        return 0;
    const RowRecord& row = list.rows.At(item->iItem);
    if (item->mask & LVIF_PARAM)
        item->lParam = row.data;
    if (item->mask & LVIF_IMAGE)
        item->iImage = row.image;
    if (item->mask & LVIF_INDENT)
        item->iIndent = static_cast<int>(row.indent);
    if (item->mask & LVIF_STATE)
        item->state = StateOf(list, item->iItem) & item->stateMask;
    if (item->mask & LVIF_TEXT) // last: a text source may remove the row
        CopyTo(item->pszText, item->cchTextMax, TextOf(list, item->iItem, item->iSubItem));
    return 1;
}

LRESULT SetItemText(ListState& list, int row, const LVITEM* item) {
    return item && SetText(list, row, item->iSubItem, item->pszText ? item->pszText : "");
}

LRESULT Set(ListState& list, const LVITEM* item) {
    if (!item || !list.rows.Has(item->iItem))
        return 0;
    if (item->mask & LVIF_PARAM)
        SetData(list, item->iItem, item->lParam);
    if (item->mask & LVIF_IMAGE)
        SetImage(list, item->iItem, item->iImage);
    if (item->mask & LVIF_INDENT)
        SetIndent(list, item->iItem, item->iIndent);
    FollowedRow target(list, item->iItem);
    if ((item->mask & LVIF_TEXT) && !SetItemText(list, target.row, item))
        return 0;
    if ((item->mask & LVIF_STATE) && target.IsThere())
        return SetState(list, target.row, item->state, item->stateMask);
    return 1;
}

LRESULT GetText(const ListState& list, int row, LVITEM* item) {
    if (!item || !list.rows.Has(row) || item->iSubItem < 0)
        return 0;
    return CopyTo(item->pszText, item->cchTextMax, TextOf(list, row, item->iSubItem));
}

LRESULT TestHit(const ListState& list, LVHITTESTINFO* info) {
    return info ? HitTest(list, info->pt).StoreIn(*info) : NoRow;
}

// --- columns ---

LRESULT InsertOneColumn(ListState& list, int column, const LVCOLUMN* content) {
    if (!content)
        return ListColumns::None;
    ListColumn added;
    if ((content->mask & LVCF_TEXT) && content->pszText)
        added.title = content->pszText;
    if (content->mask & LVCF_FMT)
        added.format = content->fmt;
    added.width = content->mask & LVCF_WIDTH ? content->cx : -1;
    return InsertColumn(list, column, std::move(added));
}

LRESULT SetColumn(ListState& list, int column, const LVCOLUMN* content) {
    if (!content || !list.columns.Has(column))
        return 0;
    if ((content->mask & LVCF_TEXT) && content->pszText)
        list.columns.SetTitle(column, content->pszText);
    if (content->mask & LVCF_FMT)
        list.columns.SetFormat(column, content->fmt);
    if (content->mask & (LVCF_TEXT | LVCF_FMT)) {
        RepaintAll(list);
        InvalidateRect(list.header);
    }
    if (content->mask & LVCF_WIDTH)
        SetColumnWidth(list, column, content->cx);
    return 1;
}

LRESULT SetExtendedStyle(ListState& list, UINT mask, UINT style) {
    const UINT former = list.extendedStyle;
    list.extendedStyle = mask == 0 ? style : (former & ~mask) | (style & mask);
    RepaintAll(list);
    return former;
}

} // namespace

std::optional<LRESULT> HandleItemMessage(ListState& list, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto number = static_cast<int>(wParam);
    switch (message) {
    case LVM_INSERTITEM:
        return Insert(list, At<const LVITEM>(lParam));
    case LVM_GETITEM:
        return Get(list, At<LVITEM>(lParam));
    case LVM_SETITEM:
        return Set(list, At<const LVITEM>(lParam));
    case LVM_GETITEMTEXT:
        return GetText(list, number, At<LVITEM>(lParam));
    case LVM_SETITEMTEXT:
        return SetItemText(list, number, At<const LVITEM>(lParam));
    case LVM_HITTEST:
    case LVM_SUBITEMHITTEST:
        return TestHit(list, At<LVHITTESTINFO>(lParam));
    case LVM_INSERTCOLUMN:
        return InsertOneColumn(list, number, At<const LVCOLUMN>(lParam));
    case LVM_SETCOLUMN:
        return SetColumn(list, number, At<const LVCOLUMN>(lParam));
    case LVM_SETEXTENDEDLISTVIEWSTYLE:
        return SetExtendedStyle(list, static_cast<UINT>(wParam), static_cast<UINT>(lParam));
    case LVM_GETEXTENDEDLISTVIEWSTYLE:
        return list.extendedStyle;
    case LVM_GETHEADER:
        return reinterpret_cast<LRESULT>(list.header);
    case LVM_GETTOPINDEX:
        return list.topRow;
    case LVM_GETCOUNTPERPAGE:
        return LayoutOf(list).rowsPerPage;
    case LVM_GETSELECTEDCOUNT:
        return list.rows.SelectedCount();
    case LVM_GETSELECTIONMARK:
        return list.markRow;
    case LVM_SETSELECTIONMARK:
        return SetMark(list, static_cast<int>(lParam));
    default:
        return std::nullopt;
    }
}

} // namespace korvel::internal
