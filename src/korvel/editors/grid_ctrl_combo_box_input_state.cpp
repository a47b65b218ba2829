#include "korvel/editors/grid_ctrl_combo_box_input_state.h"

namespace korvel {

// The click chooses nothing itself: what the pointer made current before is taken, wherever it is now. Kept;
// a click without a move before it takes the former row.
void CGridCtrlComboBoxInputState::OnLButtonDown(UINT, CPoint) {
    Apply();
    SendFinished();
}

void CGridCtrlComboBoxInputState::OnMouseMove(UINT, CPoint point) {
    const int row = HitRow(point);
    if (row != -1 && row != GetCurrent())
        SetCurrent(row);
}

void CGridCtrlComboBoxInputState::Step(int delta) {
    IGridCtrlComboBoxInputState::Step(delta);
    Apply();
}

} // namespace korvel
