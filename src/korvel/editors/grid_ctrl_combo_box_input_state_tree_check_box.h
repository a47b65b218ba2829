#pragma once

#include "korvel/editors/i_grid_ctrl_combo_box_input_state.h"

namespace korvel {

/// A tree with check boxes, on groups too.
class KORVEL_API CGridCtrlComboBoxInputStateTreeCheckBox : public IGridCtrlComboBoxInputState {
public:
    using IGridCtrlComboBoxInputState::IGridCtrlComboBoxInputState;
    void OnLButtonDown(UINT flags, CPoint point) override;
    void OnLButtonDblClk(UINT flags, CPoint point) override;
    void OnKeyDown(UINT key, UINT repeat, UINT flags) override;
    bool TakesSpace() const override { return true; }

private:
    void SetCheck(ComboTreeItem& item, bool check);
};

} // namespace korvel
