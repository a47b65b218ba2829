#include "korvel/window/controls/combo_box_state.h"

#include "korvel/window/controls/combo_choice.h"

#include <algorithm>

namespace korvel::internal {

view::ChoiceView ComboBoxState::Choice() const {
    const int rowHeight = std::max(1, GetSystemMetrics(SM_KORVEL_TEXTHEIGHT));
    return {entries.Size(), current, std::max(1, listHeight / rowHeight), isDropped};
}

CString ComboBoxState::ChoiceText(int index) const {
    return entries.Has(index) ? entries[index].text : CString();
}

void ComboBoxState::Value(double value) {
    if (value >= 0 && value < entries.Size())
        Choose(*this, static_cast<int>(value));
}

void ComboBoxState::Dropped(bool isOpen) {
    if (isOpen)
        Open(*this);
    else
        Close(*this, Closing::Cancel);
}

} // namespace korvel::internal
