#include "korvel/editors/make_input_state.h"

#include "korvel/editors/combo_view.h"
#include "korvel/editors/grid_ctrl_combo_box_input_state.h"
#include "korvel/editors/grid_ctrl_combo_box_input_state_check_box.h"
#include "korvel/editors/grid_ctrl_combo_box_input_state_design_default.h"
#include "korvel/editors/grid_ctrl_combo_box_input_state_tree.h"
#include "korvel/editors/grid_ctrl_combo_box_input_state_tree_check_box.h"

namespace korvel::internal {

namespace {

using StatePtr = std::unique_ptr<IGridCtrlComboBoxInputState>;

template <class State>
StatePtr Make(ComboView& view) {
    return std::make_unique<State>(view);
}

struct StateRow {
    std::uint32_t kind;
    StatePtr (*make)(ComboView&);
};

constexpr StateRow States[] = {
    {ENF_CheckBoxes, Make<CGridCtrlComboBoxInputStateCheckBox>},
    {ENF_Tree, Make<CGridCtrlComboBoxInputStateTree>},
    {ENF_CheckBoxes | ENF_Tree, Make<CGridCtrlComboBoxInputStateTreeCheckBox>},
};

// The flags that say how a list is used. Any other bit in the mask makes it a plain one.
constexpr std::uint32_t KindMask = 0xC4FFFAFF;

} // namespace

StatePtr MakeInputState(ComboView& view, std::uint32_t enumFlags) {
    const EComboListMode mode = view.Model().Binding().Mode();
    if (mode < eDesignFlat || mode > eDropDown)
        return nullptr;
    for (const StateRow& row : States)
        if (row.kind == (enumFlags & KindMask))
            return row.make(view);
    return mode == eDropDown ? Make<CGridCtrlComboBoxInputState>(view)
                             : Make<CGridCtrlComboBoxInputStateDesignDefault>(view);
}

} // namespace korvel::internal
