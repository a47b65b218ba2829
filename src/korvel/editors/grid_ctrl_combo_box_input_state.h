#pragma once

#include "korvel/editors/i_grid_ctrl_combo_box_input_state.h"

namespace korvel {

/// A plain list that drops down: the highlight follows the pointer, and a click takes what is highlighted.
class KORVEL_API CGridCtrlComboBoxInputState : public IGridCtrlComboBoxInputState {
public:
    using IGridCtrlComboBoxInputState::IGridCtrlComboBoxInputState;
    void OnLButtonDown(UINT flags, CPoint point) override;
    void OnMouseMove(UINT flags, CPoint point) override;
    void Step(int delta) override;
};

} // namespace korvel
