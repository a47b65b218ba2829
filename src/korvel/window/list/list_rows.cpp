#include "korvel/window/list/list_rows.h"

#include "korvel/window/list/list_label_edit.h"
#include "korvel/window/list/list_notify.h"
#include "korvel/window/list/list_scroll.h"
#include "korvel/window/list/list_selection.h"

namespace korvel::internal {

// Rows that are removed one by one, the last one first. Who hears of one may insert and remove rows itself:
// those that are still to go are followed.
struct LeavingRows {
    LeavingRows(ListState& owner, int firstRow, int lastRow)
        : list(owner), outer(owner.leaving), first(firstRow), next(lastRow - 1) {
        list.leaving = this;
    }
    ~LeavingRows() { list.leaving = outer; }
    LeavingRows(const LeavingRows&) = delete;
    LeavingRows& operator=(const LeavingRows&) = delete;

    ListState& list;
    LeavingRows* const outer; // whose notice led to this removal
    int first;
    int next;
    int row = NoRow; // the one that is told of, until it is gone
};

namespace {

// Rows that the list remembers by number move along.
void ShiftForInsertion(int& remembered, int row, int count) {
    if (remembered >= row)
        remembered += count;
}

void ShiftForErasure(int& remembered, int first, int last) {
    if (remembered >= last)
        remembered -= last - first;
    else if (remembered >= first)
        remembered = NoRow;
}

void EraseRows(ListState& list, int first, int last) {
    const bool hadFocus = list.focusRow >= first && list.focusRow < last;
    list.rows.Erase(first, last);
    ShiftForErasure(list.focusRow, first, last);
    ShiftForErasure(list.markRow, first, last);
    ShiftForErasure(list.labelEdit.row, first, last);
    ShiftForErasure(list.press.row, first, last);
    const auto erasedBefore = [=](int row) { return std::max(0, std::min(row, last) - first); };
    for (LeavingRows* leaving = list.leaving; leaving; leaving = leaving->outer) {
        ShiftForErasure(leaving->row, first, last);
        leaving->first -= erasedBefore(leaving->first);
        leaving->next -= erasedBefore(leaving->next + 1);
    }
    if (hadFocus)
        list.focusRow = std::min(first, list.rows.Size() - 1);
}

// `row` is followed: its number may be another one after each notice.
void Deselect(ListState& list, const int& row) {
    if (!list.rows.IsSelected(row))
        return;
    const UINT before = StateOf(list, row);
    const UINT after = before & ~LVIS_SELECTED;
    NotifyState(list, LVN_ITEMCHANGING, row, before, after);
    if (row == NoRow)
        return;
    list.rows.Select(row, false);
    NotifyState(list, LVN_ITEMCHANGED, row, before, after);
}

} // namespace

int InsertRows(ListState& list, int row, int count, const RowBlocks::Maker& make) {
    if (row < 0)
        return NoRow;
    row = std::min(row, list.rows.Size());
    list.rows.Insert(row, count, make);
    ShiftForInsertion(list.focusRow, row, count);
    ShiftForInsertion(list.markRow, row, count);
    ShiftForInsertion(list.labelEdit.row, row, count);
    ShiftForInsertion(list.press.row, row, count);
    for (LeavingRows* leaving = list.leaving; leaving; leaving = leaving->outer)
        for (int* followed : {&leaving->row, &leaving->first, &leaving->next})
            ShiftForInsertion(*followed, row, count);
    RepaintFrom(list, row);
    UpdateExtent(list);
    return row;
}

void DeleteRows(ListState& list, int first, int last, DeletionNotice notice) {
    LeavingRows leaving(list, first, last);
    if (list.labelEdit.row >= first && list.labelEdit.row < last)
        EndLabelEdit(list, LabelEditEnd::Cancel);
    // Counted, so that a handler that inserts among the rest cannot keep this going.
    for (int left = last - first; left > 0 && leaving.next >= leaving.first; --left) {
        leaving.row = leaving.next--;
        Deselect(list, leaving.row);
        if (leaving.row != NoRow && notice == DeletionNotice::Told)
            NotifyRow(list, LVN_DELETEITEM, leaving.row);
        if (leaving.row != NoRow)
            EraseRows(list, leaving.row, leaving.row + 1);
    }
    RepaintFrom(list, leaving.first);
    UpdateExtent(list);
}

void DeleteRowsQuietly(ListState& list, int first, int last) {
    EraseRows(list, first, last);
    RepaintFrom(list, first);
    UpdateExtent(list);
    if (list.labelEdit.row == NoRow)
        EndLabelEdit(list, LabelEditEnd::Cancel);
}

void DeleteAllRows(ListState& list) {
    const bool quiet = NotifyRow(list, LVN_DELETEALLITEMS, NoRow) != 0;
    DeleteRows(list, 0, list.rows.Size(), quiet ? DeletionNotice::Suppressed : DeletionNotice::Told);
}

CString TextOf(const ListState& list, int row, int column) {
    const auto& record = list.rows.At(row);
    if (!record.texts) {
        const auto source = list.textSource;
        return source ? (*source)(record.data, column) : CString();
    }
    const auto& texts = *record.texts;
    return column < static_cast<int>(texts.size()) ? texts[column] : CString();
}

void SetText(ListState& list, int row, int column, const CString& text) {
    auto& texts = list.rows.At(row).texts;
    if (!texts)
        texts = std::make_unique<std::vector<CString>>();
    if (static_cast<int>(texts->size()) <= column)
        texts->resize(column + 1);
    (*texts)[column] = text;
    RepaintRows(list, row, row + 1);
}

} // namespace korvel::internal
