#pragma once

#include "korvel/window/list/list_state.h"

/// Selection, focus and check of rows, with the notices that go with them.
namespace korvel::internal {

/// LVIS_* bits, the state image (1 unchecked, 2 checked) included.
UINT StateOf(const ListState& list, int row);
/// Changes the state of one row. LVN_ITEMCHANGING asks it first and then the rows that lose the focus or,
/// with LVS_SINGLESEL, the selection by it: when one of them refuses, nothing has changed, and the result is
/// false. The others hear LVN_ITEMCHANGED before the row. Where the row is in that state already, nothing is
/// sent. The first row that is selected while there is no mark becomes the mark.
bool SetState(ListState& list, int row, UINT state, UINT mask);
/// Changes all rows; selecting all is refused with LVS_SINGLESEL.
bool SetStateOfAll(ListState& list, UINT state, UINT mask);
/// The first row after `row` (NoRow: from the top) with all of the LVNI_* flags; with LVNI_FOCUSED the
/// focused row, unless it is `row`. NoRow when there is none or `row` is no row.
int NextRow(const ListState& list, int row, UINT flags);
/// Returns the mark before. No such row: there is none from now on.
int SetMark(ListState& list, int row);
/// Removes the selection from all rows that do not refuse.
void DeselectAll(ListState& list);

/// How a key or press with Shift and Ctrl changes the selection.
enum class SelectionChange { Replace, Extend, MoveFocus, Toggle };
/// False when it was refused, and then neither selection, focus nor mark has changed.
bool MoveSelection(ListState& list, int row, SelectionChange change);

/// Inverts the check of a row and gives the new one to all selected rows when it is one of them.
void ToggleCheck(ListState& list, int row);
bool SetCheck(ListState& list, int row, bool check);

} // namespace korvel::internal
