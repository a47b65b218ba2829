#include "korvel/grid/edit_keys.h"

#include "korvel/window/core/input.h"

namespace korvel::internal {

namespace {

KeyMeaning OfCell(CellKey key) {
    return {KeyMeaning::Kind::Cell, key};
}

KeyMeaning OfSign(UINT key) {
    return {KeyMeaning::Kind::Sign, CellKey::Open, key};
}

KeyMeaning OfKey(UINT key, const KeyedRow& row) {
    switch (key) {
    case VK_F2:
        return OfCell(CellKey::Open);
    case VK_RETURN:
        if (row.isGroup)
            return OfSign(row.isCollapsed ? VK_ADD : VK_SUBTRACT);
        return OfCell(CellKey::Open);
    case VK_SPACE:
        return OfCell(CellKey::Toggle);
    case VK_RIGHT:
        return row.isGroup && row.isCollapsed ? OfSign(VK_ADD) : KeyMeaning();
    case VK_LEFT:
        return row.isGroup && !row.isCollapsed ? OfSign(VK_SUBTRACT) : KeyMeaning();
    default:
        return {};
    }
}

KeyMeaning OfCharacter(WPARAM character) {
    const input::KeyOnTheWay* typed = input::CurrentKey();
    const UINT key = typed ? typed->key : 0;
    if (key == VK_ADD || key == VK_SUBTRACT || key == VK_MULTIPLY)
        return {};
    switch (character) {
    case '+':
        return OfSign(VK_ADD);
    case '-':
        return OfSign(VK_SUBTRACT);
    case '*':
        return OfSign(VK_MULTIPLY);
    default:
        return {};
    }
}

} // namespace

KeyMeaning MeaningOf(const MSG& message, const KeyedRow& row) {
    if (IsKeyDown(VK_CONTROL))
        return {};
    switch (message.message) {
    case WM_KEYDOWN:
        return OfKey(static_cast<UINT>(message.wParam), row);
    case WM_SYSKEYDOWN:
        return message.wParam == VK_DOWN ? OfCell(CellKey::Drop) : KeyMeaning();
    case WM_CHAR:
        return OfCharacter(message.wParam);
    default:
        return {};
    }
}

} // namespace korvel::internal
