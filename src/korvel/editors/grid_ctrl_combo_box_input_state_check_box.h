#pragma once

#include "korvel/editors/i_grid_ctrl_combo_box_input_state.h"

namespace korvel {

/// A list with check boxes, in a dialog as well as dropped down.
class KORVEL_API CGridCtrlComboBoxInputStateCheckBox : public IGridCtrlComboBoxInputState {
public:
    using IGridCtrlComboBoxInputState::IGridCtrlComboBoxInputState;
    void OnLButtonDown(UINT flags, CPoint point) override;
    void OnLButtonDblClk(UINT flags, CPoint point) override;
    void OnKeyDown(UINT key, UINT repeat, UINT flags) override;
    bool TakesSpace() const override { return true; }

private:
    void Toggle(ComboTreeItem& item);
};

} // namespace korvel
