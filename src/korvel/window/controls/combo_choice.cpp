#include "korvel/window/controls/combo_choice.h"

#include "korvel/platform/first_failure.h"
#include "korvel/platform/raised_flag.h"
#include "korvel/window/core/window_changes.h"

#include <algorithm>
#include <utility>

namespace korvel::internal {

namespace {

// A notice of several that all must be sent, whatever a handler throws.
void Notify(const ComboBoxState& box, UINT code, FirstFailure& failure) {
    failure.Try([&] { NotifyParentCommand(box.record.handle, code); });
}

void Show(ComboBoxState& box, int index, const CString& text) {
    box.current = index;
    TellDisplay(box.record, Aspect::State);
    SetText(box, text);
}

// The former entry, or what was typed.
void BringBack(ComboBoxState& box) {
    const bool wasTyped = box.edit && box.currentAtDrop == ComboEntries::None;
    Show(box, box.currentAtDrop, wasTyped ? box.textAtDrop : box.ChoiceText(box.currentAtDrop));
}

} // namespace

void SetText(ComboBoxState& box, const CString& text) {
    if (!box.edit) {
        box.record.text = text;
        return;
    }
    const RaisedFlag setting(box.isSettingText);
    SetWindowTextA(box.edit, text);
    SendMessageA(box.edit, EM_SETSEL, 0, -1);
}

void Select(ComboBoxState& box, int index) {
    Show(box, index, box.ChoiceText(index));
}

void MoveTo(ComboBoxState& box, int index) {
    if (box.entries.Size() == 0)
        return;
    index = std::clamp(index, 0, box.entries.Size() - 1);
    if (index == box.current)
        return;
    FirstFailure failure;
    failure.Try([&] { Select(box, index); });
    if (!box.isDropped)
        Notify(box, CBN_SELENDOK, failure);
    Notify(box, CBN_SELCHANGE, failure);
    failure.Rethrow();
}

void Choose(ComboBoxState& box, int index) {
    const bool isAnother = index != box.current;
    FirstFailure failure;
    if (isAnother)
        failure.Try([&] { Select(box, index); });
    if (box.isDropped)
        failure.Try([&] { Close(box, Closing::Take); });
    else if (isAnother)
        Notify(box, CBN_SELENDOK, failure);
    if (isAnother)
        Notify(box, CBN_SELCHANGE, failure);
    failure.Rethrow();
}

void Open(ComboBoxState& box) {
    if (box.isDropped || box.IsSimple())
        return;
    if (box.edit)
        box.textAtDrop = GetWindowTextA(box.edit);
    box.isDropped = true;
    box.currentAtDrop = box.current;
    FirstFailure failure;
    Notify(box, CBN_DROPDOWN, failure);
    TellDisplay(box.record, Aspect::State);
    failure.Rethrow();
}

void Close(ComboBoxState& box, Closing how) {
    if (!std::exchange(box.isDropped, false))
        return;
    FirstFailure failure;
    if (how == Closing::Cancel && box.current != box.currentAtDrop)
        failure.Try([&] { BringBack(box); });
    TellDisplay(box.record, Aspect::State);
    Notify(box, how == Closing::Take ? CBN_SELENDOK : CBN_SELENDCANCEL, failure);
    Notify(box, CBN_CLOSEUP, failure);
    failure.Rethrow();
}

void LoseFocus(ComboBoxState& box) {
    FirstFailure failure;
    if (box.isDropped)
        failure.Try([&] { Close(box, Closing::Cancel); });
    else
        Notify(box, CBN_SELENDCANCEL, failure);
    Notify(box, CBN_KILLFOCUS, failure);
    failure.Rethrow();
}

} // namespace korvel::internal
