#include "korvel/editors/grid_ctrl_combo_box_input_state_tree.h"

#include "korvel/editors/combo_row_geometry.h"
#include "korvel/editors/combo_tree_item.h"

namespace korvel {

void CGridCtrlComboBoxInputStateTree::OnLButtonDown(UINT, CPoint point) {
    const int row = HitRow(point);
    if (row == -1 || !SetCurrent(row))
        return;
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
    if (!item || !Hits(&internal::ComboRowGeometry::Label, *item, point))
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
    IGridCtrlComboBoxInputState::Step(delta);
    const ComboTreeItem* item = CurrentItem();
    if (item && item->IsValue())
        Apply();
}

} // namespace korvel
