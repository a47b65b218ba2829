#include "korvel/editors/grid_ctrl_combo_box_input_state_tree_check_box.h"

#include "korvel/editors/combo_choice.h"
#include "korvel/editors/combo_view.h"

namespace korvel {

void CGridCtrlComboBoxInputStateTreeCheckBox::OnLButtonDown(UINT, CPoint point) {
    const int row = HitRow(point);
    if (row == -1 || !SetCurrent(row))
        return;
    ComboTreeItem* item = CurrentItem();
    if (!item || PressTreeButton(*item, point) || !Hits(&internal::ComboRowGeometry::CheckBox, *item, point))
        return;
    SetCheck(*item, item->GetChecked() <= 0);
    SendChanged();
}

void CGridCtrlComboBoxInputStateTreeCheckBox::OnLButtonDblClk(UINT, CPoint point) {
    ComboTreeItem* item = ItemAt(HitRow(point));
    if (item && item->HasChildren() && Hits(&internal::ComboRowGeometry::Label, *item, point))
        ToggleExpanded(*item);
    else
        SendFinished();
}

// The space bar does not notify the owner, unlike the mouse: kept. An owner that follows each change asks for
// the value when the list closes.
void CGridCtrlComboBoxInputStateTreeCheckBox::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    ComboTreeItem* item = CurrentItem();
    if (key == VK_SPACE && item) {
        SetCheck(*item, item->GetChecked() < 1);
        return;
    }
    IGridCtrlComboBoxInputState::OnKeyDown(key, repeat, flags);
    ExpandByKey(key);
}

// Repaints once for all rows that may show another check: a group can have any number of them.
void CGridCtrlComboBoxInputStateTreeCheckBox::SetCheck(ComboTreeItem& item, bool check) {
    internal::ComboChoice(View()->Model()).SetCheck(item, check);
    RedrawAll();
}

} // namespace korvel
