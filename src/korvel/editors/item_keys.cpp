#include "korvel/editors/item_keys.h"

#include "korvel/window/core/input.h"

namespace korvel::internal {

namespace {

// Control keys make characters below the blank.
bool TypesText(const MSG& message) {
    const input::KeyOnTheWay* typed = input::CurrentKey();
    return typed && typed->window == message.hwnd && typed->key == message.wParam &&
           !typed->characters.empty() && static_cast<unsigned char>(typed->characters.front()) >= ' ';
}

} // namespace

ItemKey ItemKeyOf(const MSG& message, ItemEditor editor) {
    const bool isArrow = message.wParam == VK_DOWN || message.wParam == VK_UP;
    const bool drops = editor == ItemEditor::List || editor == ItemEditor::Date;
    if (message.message == WM_SYSKEYDOWN)
        return drops && isArrow ? ItemKey::Edit : ItemKey::None;
    if (message.message != WM_KEYDOWN)
        return ItemKey::None;
    switch (message.wParam) {
    case VK_TAB:
        return ItemKey::Leave;
    case VK_F2:
        return ItemKey::Edit;
    case VK_F4:
        return drops ? ItemKey::Edit : ItemKey::None;
    case VK_SPACE:
        if (editor != ItemEditor::Text)
            return ItemKey::Edit;
        [[fallthrough]];
    default:
        return editor == ItemEditor::Text && TypesText(message) ? ItemKey::Type : ItemKey::None;
    }
}

ItemListKey ItemListKeyOf(const MSG& message) {
    if (message.message == WM_SYSKEYDOWN && message.wParam == VK_UP)
        return ItemListKey::Ignore;
    if (message.message != WM_KEYDOWN)
        return ItemListKey::PassOn;
    switch (message.wParam) {
    case VK_TAB:
        return ItemListKey::Leave;
    case VK_F4:
    case VK_RETURN:
        return ItemListKey::Take;
    case VK_ESCAPE:
        return ItemListKey::Cancel;
    default:
        return ItemListKey::PassOn;
    }
}

} // namespace korvel::internal
