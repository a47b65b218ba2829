#include "korvel/editors/combo_list.h"
#include "korvel/editors/grid_ctrl_combo_box_input_states.h"

namespace korvel {

namespace {

using StatePtr = std::unique_ptr<IGridCtrlComboBoxInputState>;

template <class State>
StatePtr Make(CComboList& list) {
    return std::make_unique<State>(list);
}

struct StateRow {
    std::uint32_t kind;
    StatePtr (*make)(CComboList&);
};

constexpr StateRow States[] = {
    {ENF_CheckBoxes, Make<CGridCtrlComboBoxInputStateCheckBox>},
    {ENF_Tree, Make<CGridCtrlComboBoxInputStateTree>},
    {ENF_CheckBoxes | ENF_Tree, Make<CGridCtrlComboBoxInputStateTreeCheckBox>},
};

// The flags that say how a list is used. Any other bit in the mask makes it a plain one.
constexpr std::uint32_t KindMask = 0xC4FFFAFF;

StatePtr MakeState(CComboList& list, std::uint32_t kind) {
    for (const StateRow& row : States)
        if (row.kind == kind)
            return row.make(list);
    return list.GetMode() == eDropDown ? Make<CGridCtrlComboBoxInputState>(list)
                                       : Make<CGridCtrlComboBoxInputStateDesignDefault>(list);
}

} // namespace

void CComboList::CreateInputState() {
    const unsigned binding = m_model.Binding();
    const std::uint32_t kind = GetEnumValue()->GetEnumFlags() & KindMask;
    if (binding != m_model.Binding() || GetMode() < eDesignFlat || GetMode() > eDropDown)
        return;
    StatePtr state = MakeState(*this, kind);
    if (binding == m_model.Binding())
        m_pInputState = std::move(state);
    else
        state->Detach(); // the row that it repaints has asked the host
}

} // namespace korvel
