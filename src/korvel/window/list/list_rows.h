#pragma once

#include "korvel/window/list/list_state.h"

/// The rows of a list: insertion, removal, texts.
namespace korvel::internal {

/// Answers the row at which they stand, or NoRow for a row below 0; beyond the end appends.
int InsertRows(ListState& list, int row, int count, const RowBlocks::Maker& make);

enum class DeletionNotice { Told, Suppressed };
/// Removes the rows from `first` to before `last`, the last one first. For each: a selected one is
/// deselected (LVN_ITEMCHANGING, LVN_ITEMCHANGED; a refusal does not count), LVN_DELETEITEM, then it is
/// gone. The focus of a removed row goes to the one that takes its place, or to the last one. Rows that a
/// handler inserts or removes meanwhile do not change which ones go.
void DeleteRows(ListState& list, int first, int last, DeletionNotice notice);
/// The same at once, and nobody is told. A label edit in one of the rows is given up when they are gone.
void DeleteRowsQuietly(ListState& list, int first, int last);
/// LVN_DELETEALLITEMS first; when that is answered with 1, LVN_DELETEITEM is left out.
void DeleteAllRows(ListState& list);

CString TextOf(const ListState& list, int row, int column);
void SetText(ListState& list, int row, int column, const CString& text);

} // namespace korvel::internal
