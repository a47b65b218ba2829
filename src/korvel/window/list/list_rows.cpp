#include "korvel/window/list/list_rows.h"

#include "korvel/platform/first_failure.h"
#include "korvel/window/list/followed_row.h"
#include "korvel/window/list/leaving_rows.h"
#include "korvel/window/list/list_notify.h"
#include "korvel/window/list/list_scroll.h"
#include "korvel/window/list/list_selection.h"

namespace korvel::internal {

namespace {

enum class StateNotices { Sent, Omitted };

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

// Focus and mark of an erased row go to the one that took its number, or to the new last one.
void PassOnForErasure(int& remembered, int first, int last, int newSize) {
    const bool isErased = remembered >= first && remembered < last;
    ShiftForErasure(remembered, first, last);
    if (isErased)
        remembered = std::min(first, newSize - 1);
}

void EraseRows(ListState& list, int first, int last) {
    list.rows.Erase(first, last);
    PassOnForErasure(list.focusRow, first, last, list.rows.Size());
    PassOnForErasure(list.markRow, first, last, list.rows.Size());
    ShiftForErasure(list.labelEdit.row, first, last);
    ShiftForErasure(list.press.row, first, last);
    ShiftForErasure(list.slowClickRow, first, last);
    for (FollowedRow* followed = list.followedRows; followed; followed = followed->outer)
        ShiftForErasure(followed->row, first, last);
    for (LeavingRows* leaving = list.leaving; leaving; leaving = leaving->Outer())
        leaving->OnErased(first, last);
    if (first < last)
        TellRows(list, first, last - first, 0);
}

void TakeState(ListState& list, const FollowedRow& going) {
    if (!list.rows.IsSelected(going.row))
        return;
    const UINT before = StateOf(list, going.row);
    NotifyState(list, LVN_ITEMCHANGING, going.row, before, 0);
    if (!going.IsThere())
        return;
    list.rows.Select(going.row, false);
    if (list.focusRow == going.row)
        list.focusRow = NoRow;
    NotifyState(list, LVN_ITEMCHANGED, going.row, before, 0);
}

// A label edit whose row has gone is given up.
void EndOrphanedLabelEdit(ListState& list) {
    if (!list.rows.Has(list.labelEdit.row))
        list.EndLabelEdit(LabelEditEnd::Cancel);
}

RowRecord RecordOf(const ListRow& content, bool hasTextSource) {
    RowRecord record;
    record.data = content.data;
    record.image = content.image;
    record.SetIndent(content.indent);
    record.checked = content.checked;
    if (!hasTextSource || !content.text.empty() || !content.subItems.empty()) {
        record.texts = std::make_unique<std::vector<CString>>(1, content.text);
        record.texts->insert(record.texts->end(), content.subItems.begin(), content.subItems.end());
    }
    return record;
}

// Leaves scrolling as it is: its repair notifies others.
int PlaceRows(ListState& list, int row, int count, const RowBlocks::Maker& make) {
    row = std::min(row, list.rows.Size());
    list.rows.Insert(row, count, make);
    for (int* remembered :
         {&list.focusRow, &list.markRow, &list.labelEdit.row, &list.press.row, &list.slowClickRow})
        ShiftForInsertion(*remembered, row, count);
    for (FollowedRow* followed = list.followedRows; followed; followed = followed->outer)
        ShiftForInsertion(followed->row, row, count);
    for (LeavingRows* leaving = list.leaving; leaving; leaving = leaving->Outer())
        leaving->OnInserted(row, count);
    if (count > 0)
        TellRows(list, row, 0, count);
    RepaintFrom(list, row);
    return row;
}

void DeleteEach(ListState& list, int first, int last, StateNotices stateNotices) {
    LeavingRows leaving(list, first, last);
    if (list.labelEdit.row >= first && list.labelEdit.row < last)
        list.EndLabelEdit(LabelEditEnd::Cancel);
    FirstFailure failure;
    FollowedRow going(list, leaving.TakeNext());
    for (; going.row != NoRow; going.row = failure ? NoRow : leaving.TakeNext()) {
        const bool hadFocus = list.focusRow == going.row;
        failure.Try([&] {
            if (stateNotices == StateNotices::Sent)
                TakeState(list, going);
            if (going.IsThere())
                NotifyRow(list, LVN_DELETEITEM, going.row);
        });
        if (hadFocus && list.focusRow == NoRow) // to be passed on
            list.focusRow = going.IsThere() ? going.row : std::min(leaving.End(), list.rows.Size() - 1);
        if (going.IsThere() && !failure)
            EraseRows(list, going.row, going.row + 1);
    }
    RepaintFrom(list, leaving.First());
    failure.Try([&] { EndOrphanedLabelEdit(list); });
    failure.Try([&] { UpdateExtent(list); });
    failure.Rethrow();
}

} // namespace

int InsertRowsQuietly(ListState& list, int row, int count, const RowBlocks::Maker& make) {
    if (row < 0)
        return NoRow;
    row = PlaceRows(list, row, count, make);
    UpdateExtentForNewRows(list);
    return row;
}

InsertedRow InsertRow(ListState& list, int row, const ListRow& content) {
    if (row < 0)
        return {};
    RowRecord record = RecordOf(content, list.textSource != nullptr);
    const int at = PlaceRows(list, row, 1, [&](RowRecord& inserted, int) { inserted = std::move(record); });
    FollowedRow inserted(list, at);
    UpdateExtentForNewRows(list);
    if (inserted.IsThere()) // a handler of WM_SIZE may have removed it
        NotifyRow(list, LVN_INSERTITEM, inserted.row);
    return {inserted.IsThere() ? inserted.row : at, inserted.IsThere()};
}

void DeleteRows(ListState& list, int first, int last) {
    DeleteEach(list, first, last, StateNotices::Sent);
}

void DeleteRowsQuietly(ListState& list, int first, int last) {
    EraseRows(list, first, last);
    RepaintFrom(list, first);
    FirstFailure failure;
    failure.Try([&] { EndOrphanedLabelEdit(list); });
    failure.Try([&] { UpdateExtent(list); });
    failure.Rethrow();
}

void DeleteAllRows(ListState& list) {
    const bool isQuiet = NotifyRow(list, LVN_DELETEALLITEMS, NoRow) != 0;
    list.EndLabelEdit(LabelEditEnd::Cancel);
    if (isQuiet)
        DeleteRowsQuietly(list, 0, list.rows.Size());
    else
        DeleteEach(list, 0, list.rows.Size(), StateNotices::Omitted);
}

void SetData(ListState& list, int row, LPARAM data) {
    list.rows.At(row).data = data;
    RepaintRows(list, row, row + 1);
}

void SetIndent(ListState& list, int row, int indent) {
    list.rows.At(row).SetIndent(indent);
    RepaintRows(list, row, row + 1);
}

void SetImage(ListState& list, int row, int image) {
    list.rows.At(row).image = image;
    RepaintRows(list, row, row + 1);
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

bool SetText(ListState& list, int row, int column, const CString& text) {
    if (!list.rows.Has(row) || !list.columns.Has(column))
        return false;
    FollowedRow target(list, row);
    if (NotifyText(list, LVN_ITEMCHANGING, row, column) != 0 || !target.IsThere() ||
        !list.columns.Has(column))
        return false;
    auto& texts = list.rows.At(target.row).texts;
    if (!texts)
        texts = std::make_unique<std::vector<CString>>();
    if (static_cast<int>(texts->size()) <= column)
        texts->resize(column + 1);
    (*texts)[column] = text;
    RepaintRows(list, target.row, target.row + 1);
    NotifyText(list, LVN_ITEMCHANGED, target.row, column);
    return true;
}

} // namespace korvel::internal
