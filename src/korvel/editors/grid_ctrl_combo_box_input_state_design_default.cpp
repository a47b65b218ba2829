#include "korvel/editors/grid_ctrl_combo_box_input_state_design_default.h"

namespace korvel {

void CGridCtrlComboBoxInputStateDesignDefault::OnLButtonDown(UINT, CPoint point) {
    const int row = HitRow(point);
    if (row != -1 && SetCurrent(row))
        Apply();
}

void CGridCtrlComboBoxInputStateDesignDefault::Step(int delta) {
    IGridCtrlComboBoxInputState::Step(delta);
    Apply();
}

} // namespace korvel
