#include "korvel/editors/grid_ctrl_combo_box_input_state_check_box.h"

#include "korvel/editors/combo_choice.h"
#include "korvel/editors/combo_view.h"

namespace korvel {

void CGridCtrlComboBoxInputStateCheckBox::OnLButtonDown(UINT, CPoint point) {
    const int row = HitRow(point);
    if (row == -1 || !SetCurrent(row))
        return;
    ComboTreeItem* item = CurrentItem();
    if (item && Hits(&internal::ComboRowGeometry::CheckBox, *item, point))
        Toggle(*item);
    else
        SendFinished();
}

void CGridCtrlComboBoxInputStateCheckBox::OnLButtonDblClk(UINT, CPoint) {
    SendFinished();
}

void CGridCtrlComboBoxInputStateCheckBox::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    ComboTreeItem* item = CurrentItem();
    if (key != VK_SPACE)
        IGridCtrlComboBoxInputState::OnKeyDown(key, repeat, flags);
    else if (item)
        Toggle(*item);
}

void CGridCtrlComboBoxInputStateCheckBox::Toggle(ComboTreeItem& item) {
    internal::ComboChoice(View()->Model()).ToggleCheck(item);
    SendChanged();
    RedrawAll();
}

} // namespace korvel
