#pragma once

#include "korvel/editors/i_grid_ctrl_combo_box_input_state.h"

namespace korvel {

/// A plain list in a dialog: a click takes its row.
class KORVEL_API CGridCtrlComboBoxInputStateDesignDefault : public IGridCtrlComboBoxInputState {
public:
    using IGridCtrlComboBoxInputState::IGridCtrlComboBoxInputState;
    void OnLButtonDown(UINT flags, CPoint point) override;
    void Step(int delta) override;
};

} // namespace korvel
