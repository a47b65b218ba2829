#include "korvel/editors/grid_ctrl_combo_box_input_state_tree.h"

#include "korvel/editors/combo_list.h"

namespace korvel {

void CGridCtrlComboBoxInputStateTree::OnLButtonDown(UINT, CPoint point) {
    const int row = HitRow(point);
    if (row == -1)
        return;
    SetCurrent(row);
    ComboTreeItem* item = CurrentItem();
    // An entry is taken wherever it is pressed, also on the button for those under it: kept. The
    // key to the right opens it.
    if (item && item->IsValue()) {
        Apply();
        SendFinished();
    } else if (item) {
        PressTreeButton(*item, point);
    }
}

void CGridCtrlComboBoxInputStateTree::OnLButtonDblClk(UINT, CPoint point) {
    ComboTreeItem* item = ItemAt(HitRow(point));
    if (!item || !Hits(&CComboList::GetRectLabel, *item, point))
        return;
    if (item->HasChildren())
        ToggleExpanded(*item);
    else
        SendFinished();
}

void CGridCtrlComboBoxInputStateTree::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    IGridCtrlComboBoxInputState::OnKeyDown(key, repeat, flags);
    ExpandByKey(key);
}

void CGridCtrlComboBoxInputStateTree::Step(int delta) {
    Move(delta, ApplyMode::No);
    const ComboTreeItem* item = CurrentItem();
    if (item && item->IsValue())
        Apply();
}

} // namespace korvel
