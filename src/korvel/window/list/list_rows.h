#pragma once

#include "korvel/window/list/list_state.h"

/// The rows of a list: insertion, removal, texts.
namespace korvel::internal {

/// Returns the first of them, or NoRow for a row below 0; beyond the end appends. Sends no notice.
int InsertRowsQuietly(ListState& list, int row, int count, const RowBlocks::Maker& make);
struct InsertedRow {
    int row = NoRow;
    bool isThere = false; // no handler has removed it meanwhile
};
/// The same for one row, with LVN_INSERTITEM when it is there. While there is a text source, a row of which
/// no text is given stores none.
InsertedRow InsertRow(ListState& list, int row, const ListRow& content);

/// Removes the rows from `first` to before `last`, the last one first. For each: a selected one loses its
/// state (LVN_ITEMCHANGING, which cannot refuse, and LVN_ITEMCHANGED with no bit left), LVN_DELETEITEM,
/// then it is gone. Focus and mark of a removed row go to the one that takes its place, or to the new last
/// one. Rows that a handler inserts meanwhile stay, whatever their place. After a handler that throws, the
/// row that it was told of and the rest stay; the first exception goes to the caller.
void DeleteRows(ListState& list, int first, int last);
/// The same at once, without notices. A label edit in one of the rows is cancelled when they are gone.
void DeleteRowsQuietly(ListState& list, int first, int last);
/// LVN_DELETEALLITEMS, then LVN_DELETEITEM from the last row to the first unless it returned 1. No
/// notice of a state.
void DeleteAllRows(ListState& list);

// These send no notice, and have the row painted again.
/// Also where the row stores its texts: its owner may draw what the data leads to.
void SetData(ListState& list, int row, LPARAM data);
void SetIndent(ListState& list, int row, int indent);
void SetImage(ListState& list, int row, int image);

CString TextOf(const ListState& list, int row, int column);
/// Stores a text, with LVN_ITEMCHANGING (1 refuses) and LVN_ITEMCHANGED of LVIF_TEXT. False when there is no
/// such cell, when it was refused, or when its cell has gone meanwhile.
bool SetText(ListState& list, int row, int column, const CString& text);

} // namespace korvel::internal
