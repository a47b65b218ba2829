#pragma once

#include "korvel/editors/i_grid_ctrl_combo_box_input_state.h"

namespace korvel {

/// A tree: entries are taken, groups open and close.
class KORVEL_API CGridCtrlComboBoxInputStateTree : public IGridCtrlComboBoxInputState {
public:
    using IGridCtrlComboBoxInputState::IGridCtrlComboBoxInputState;
    void OnLButtonDown(UINT flags, CPoint point) override;
    void OnLButtonDblClk(UINT flags, CPoint point) override;
    void OnKeyDown(UINT key, UINT repeat, UINT flags) override;
    void Step(int delta) override;
};

} // namespace korvel
