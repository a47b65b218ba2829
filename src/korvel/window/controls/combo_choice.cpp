#include "korvel/window/controls/combo_choice.h"

#include "korvel/window/core/window_changes.h"

#include <algorithm>
#include <utility>

namespace korvel::internal {

namespace {

void Notify(const ComboBoxState& box, UINT code) {
    NotifyParentCommand(box.record.handle, code);
}

} // namespace

void SetText(ComboBoxState& box, const CString& text) {
    if (box.edit) {
        const bool wasSetting = std::exchange(box.isSettingText, true);
        SetWindowTextA(box.edit, text);
        SendMessageA(box.edit, EM_SETSEL, 0, -1);
        box.isSettingText = wasSetting;
    } else {
        box.record.text = text;
    }
}

void Select(ComboBoxState& box, int index) {
    box.current = index;
    SetText(box, box.ChoiceText(index));
    TellDisplay(box.record, Aspect::State);
}

void MoveTo(ComboBoxState& box, int index) {
    if (box.entries.Size() == 0)
        return;
    index = std::clamp(index, 0, box.entries.Size() - 1);
    if (index == box.current)
        return;
    Select(box, index);
    if (!box.isDropped)
        Notify(box, CBN_SELENDOK);
    Notify(box, CBN_SELCHANGE);
}

void Choose(ComboBoxState& box, int index) {
    const bool isAnother = index != box.current;
    if (isAnother)
        Select(box, index);
    if (box.isDropped)
        Close(box, Closing::Take);
    else if (isAnother)
        Notify(box, CBN_SELENDOK);
    if (isAnother)
        Notify(box, CBN_SELCHANGE);
}

void Open(ComboBoxState& box) {
    if (box.isDropped || box.IsSimple())
        return;
    box.isDropped = true;
    box.currentAtDrop = box.current;
    Notify(box, CBN_DROPDOWN);
    TellDisplay(box.record, Aspect::State);
}

void Close(ComboBoxState& box, Closing how) {
    if (!std::exchange(box.isDropped, false))
        return;
    if (how == Closing::Cancel && box.current != box.currentAtDrop)
        Select(box, box.currentAtDrop);
    TellDisplay(box.record, Aspect::State);
    Notify(box, how == Closing::Take ? CBN_SELENDOK : CBN_SELENDCANCEL);
    Notify(box, CBN_CLOSEUP);
}

void LoseFocus(ComboBoxState& box) {
    if (box.isDropped)
        Close(box, Closing::Cancel);
    else
        Notify(box, CBN_SELENDCANCEL);
    Notify(box, CBN_KILLFOCUS);
}

} // namespace korvel::internal
