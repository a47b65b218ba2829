#include "korvel/window/list/list_notify.h"

namespace korvel::internal {

namespace {

LPARAM DataOf(const ListState& list, int row) {
    return list.rows.Has(row) ? list.rows.At(row).data : 0;
}

} // namespace

LRESULT Notify(ListState& list, UINT code) {
    NMHDR header;
    return NotifyParent(list.Handle(), code, header);
}

LRESULT NotifyRow(ListState& list, UINT code, int row, int column, CPoint point) {
    NMLISTVIEW notice;
    notice.iItem = row;
    notice.iSubItem = column;
    notice.ptAction = point;
    notice.lParam = DataOf(list, row);
    return NotifyParent(list.Handle(), code, notice.hdr);
}

LRESULT NotifyState(ListState& list, UINT code, int row, UINT oldState, UINT newState) {
    NMLISTVIEW notice;
    notice.iItem = row;
    notice.uOldState = oldState;
    notice.uNewState = newState;
    notice.uChanged = LVIF_STATE;
    notice.lParam = DataOf(list, row);
    return NotifyParent(list.Handle(), code, notice.hdr);
}

LRESULT NotifyText(ListState& list, UINT code, int row, int column) {
    NMLISTVIEW notice;
    notice.iItem = row;
    notice.iSubItem = column;
    notice.uChanged = LVIF_TEXT;
    notice.lParam = DataOf(list, row);
    return NotifyParent(list.Handle(), code, notice.hdr);
}

void NotifyKey(ListState& list, UINT key) {
    NMLVKEYDOWN notice;
    notice.wVKey = key;
    NotifyParent(list.Handle(), LVN_KEYDOWN, notice.hdr);
}

LRESULT NotifyLabelEdit(ListState& list, UINT code, int row, const char* text) {
    NMLVDISPINFO notice;
    notice.iItem = row;
    notice.pszText = text;
    notice.lParam = DataOf(list, row);
    return NotifyParent(list.Handle(), code, notice.hdr);
}

LRESULT NotifyHeader(ListState& list, UINT code, int column) {
    NMHEADER notice;
    notice.iItem = column;
    notice.cxy = list.columns.Has(column) ? list.columns[column].width : 0;
    return NotifyParent(list.header, code, notice.hdr);
}

} // namespace korvel::internal
