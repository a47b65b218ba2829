#pragma once

#include "korvel/editors/grid_ctrl_combo_box_input_state.h"

namespace korvel {

/// A plain list that drops down: the highlight follows the pointer, and a click takes what is highlighted.
class KORVEL_API CGridCtrlComboBoxInputState : public IGridCtrlComboBoxInputState {
public:
    using IGridCtrlComboBoxInputState::IGridCtrlComboBoxInputState;
    void OnLButtonDown(UINT flags, CPoint point) override;
    void OnMouseMove(UINT flags, CPoint point) override;
    void Step(int delta) override;
};

/// A list with check boxes, in a dialog as well as dropped down.
class KORVEL_API CGridCtrlComboBoxInputStateCheckBox : public IGridCtrlComboBoxInputState {
public:
    using IGridCtrlComboBoxInputState::IGridCtrlComboBoxInputState;
    void OnLButtonDown(UINT flags, CPoint point) override;
    void OnLButtonDblClk(UINT flags, CPoint point) override;
    void OnKeyDown(UINT key, UINT repeat, UINT flags) override;
    bool TakesSpace() const override { return true; }
    void Step(int delta) override;

private:
    void Toggle(ComboTreeItem& item);
};

/// A plain list that stands in a dialog: a click takes its row.
class KORVEL_API CGridCtrlComboBoxInputStateDesignDefault : public IGridCtrlComboBoxInputState {
public:
    using IGridCtrlComboBoxInputState::IGridCtrlComboBoxInputState;
    void OnLButtonDown(UINT flags, CPoint point) override;
    void Step(int delta) override;
};

/// A tree: entries are taken, groups open and close.
class KORVEL_API CGridCtrlComboBoxInputStateTree : public IGridCtrlComboBoxInputState {
public:
    using IGridCtrlComboBoxInputState::IGridCtrlComboBoxInputState;
    void OnLButtonDown(UINT flags, CPoint point) override;
    void OnLButtonDblClk(UINT flags, CPoint point) override;
    void OnKeyDown(UINT key, UINT repeat, UINT flags) override;
    void Step(int delta) override;
};

/// A tree with check boxes, on groups too.
class KORVEL_API CGridCtrlComboBoxInputStateTreeCheckBox : public IGridCtrlComboBoxInputState {
public:
    using IGridCtrlComboBoxInputState::IGridCtrlComboBoxInputState;
    void OnLButtonDown(UINT flags, CPoint point) override;
    void OnLButtonDblClk(UINT flags, CPoint point) override;
    void OnKeyDown(UINT key, UINT repeat, UINT flags) override;
    bool TakesSpace() const override { return true; }
    void Step(int delta) override;

private:
    void SetCheck(ComboTreeItem& item, bool check);
};

} // namespace korvel
