#include "editors/combo_list.h"
#include "editors/grid_ctrl_combo_box_input_states.h"

namespace korvel {

void CGridCtrlComboBoxInputStateTree::OnLButtonDown(UINT, CPoint point) {
    const int row = HitRow(point);
    if (row == -1) {
        return;
    }
    SetCurrent(row);
    CComboTreeItem* const item = CurrentItem();
    // An entry that others stand under has a button as well; a press on it takes nothing.
    if (item && !PressTreeButton(*item, point) && item->IsValue()) {
        Apply();
        SendFinished();
    }
}

void CGridCtrlComboBoxInputStateTree::OnLButtonDblClk(UINT, CPoint point) {
    CComboTreeItem* const item = ItemAt(HitRow(point));
    if (!item || !List()->GetRectLabel(*item).PtInRect(point)) {
        return;
    }
    if (item->HasChildren()) {
        ToggleExpanded(*item);
    } else {
        SendFinished();
    }
}

void CGridCtrlComboBoxInputStateTree::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    IGridCtrlComboBoxInputState::OnKeyDown(key, repeat, flags);
    ExpandByKey(key);
}

void CGridCtrlComboBoxInputStateTree::Step(int delta) {
    Move(delta, EApply::No);
    const CComboTreeItem* const item = CurrentItem();
    if (item && item->IsValue()) {
        Apply();
    }
}

} // namespace korvel
