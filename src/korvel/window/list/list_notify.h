#pragma once

#include "korvel/window/list/list_state.h"

/// The notices of a list to its parent. Each returns what the parent returned.
namespace korvel::internal {

LRESULT Notify(ListState& list, UINT code);
LRESULT NotifyRow(ListState& list, UINT code, int row, int column = 0, CPoint point = {});
/// LVN_ITEMCHANGING and LVN_ITEMCHANGED of a row's state.
LRESULT NotifyState(ListState& list, UINT code, int row, UINT oldState, UINT newState);
/// LVN_ITEMCHANGING and LVN_ITEMCHANGED of a cell's text.
LRESULT NotifyText(ListState& list, UINT code, int row, int column);
void NotifyKey(ListState& list, UINT key);
LRESULT NotifyLabelEdit(ListState& list, UINT code, int row, const char* text);
/// The header's notices of a column go to the list.
LRESULT NotifyHeader(ListState& list, UINT code, int column);

} // namespace korvel::internal
