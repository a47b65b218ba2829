#include "korvel/window/controls/combo_keyboard.h"

#include "korvel/window/controls/combo_choice.h"
#include "korvel/window/core/input_delivery.h"

#include <algorithm>
#include <optional>

namespace korvel::internal {

namespace {

// In a box with a text field these keys are the field's.
std::optional<int> TargetInList(const ComboBoxState& box, UINT key) {
    switch (key) {
    case VK_LEFT:
        return box.current - 1;
    case VK_RIGHT:
        return box.current + 1;
    case VK_HOME:
        return 0;
    case VK_END:
        return box.entries.Size() - 1;
    default:
        return std::nullopt;
    }
}

std::optional<int> TargetOf(const ComboBoxState& box, UINT key) {
    const int page = std::max(1, box.Choice().rowsInList - 1);
    switch (key) {
    case VK_UP:
        return box.current - 1;
    case VK_DOWN:
        return box.current + 1;
    case VK_PRIOR:
        return box.current - page;
    case VK_NEXT:
        return box.current + page;
    default:
        return box.HasEdit() ? std::nullopt : TargetInList(box, key);
    }
}

bool Toggles(UINT message, UINT key) {
    return message == WM_SYSKEYDOWN ? key == VK_UP || key == VK_DOWN : key == VK_F4;
}

bool EndsList(WPARAM key) {
    return key == VK_RETURN || key == VK_ESCAPE;
}

} // namespace

UINT KeysOfOpenList(const ComboBoxState& box, WPARAM key) {
    return box.isDropped && EndsList(key) ? DLGC_WANTALLKEYS : 0;
}

bool PressKey(ComboBoxState& box, UINT message, UINT key) {
    if (Toggles(message, key)) {
        if (box.isDropped)
            Close(box, Closing::Take);
        else
            Open(box);
        return !box.IsSimple();
    }
    if (message == WM_SYSKEYDOWN)
        return false;
    if (box.isDropped && EndsList(key)) {
        Close(box, key == VK_RETURN ? Closing::Take : Closing::Cancel);
        return true;
    }
    const auto target = TargetOf(box, key);
    if (target)
        MoveTo(box, *target);
    return target.has_value();
}

bool TypeCharacter(ComboBoxState& box, WPARAM byte) {
    if (box.HasEdit())
        return false;
    const auto character = TypedText(box.record.handle, byte);
    if (!character)
        return true; // its other bytes follow
    if (static_cast<unsigned char>(character->front()) <= ' ')
        return false;
    const int found = box.entries.Find(box.current, *character, ComboEntries::Match::Beginning);
    if (found != ComboEntries::None)
        MoveTo(box, found);
    return true;
}

} // namespace korvel::internal
