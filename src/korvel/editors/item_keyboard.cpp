#include "korvel/editors/item_keyboard.h"

#include "korvel/editors/dialog_around.h"
#include "korvel/editors/item_keys.h"
#include "korvel/window/base/loss_watch.h"
#include "korvel/window/core/input.h"

namespace korvel::internal {

bool ItemKeyboard::Translate(const MSG& message) {
    const bool isKey = message.message >= WM_KEYDOWN && message.message <= WM_KEYLAST;
    if (m_item.m_isDropped && message.message == WM_MOUSEWHEEL)
        return m_item.m_List.SendMessageA(message.message, message.wParam, message.lParam), true;
    if (m_item.m_isDropped && isKey)
        return PressInList(message), true;
    if (ItemKeyOf(message, ItemEditor::None) == ItemKey::Leave && message.hwnd != m_item.m_hWnd)
        return LeaveByTab(m_item.m_hWnd, message), true;
    return message.hwnd == m_item.m_hWnd && Press(message);
}

bool ItemKeyboard::Press(const MSG& message) {
    switch (ItemKeyOf(message, ItemEditorOf(m_item.m_Value))) {
    case ItemKey::Edit:
        m_item.Edit();
        return true;
    case ItemKey::Type: {
        const CString characters = input::CurrentKey()->characters;
        m_item.Edit();
        if (m_item.m_pActive == &m_item.m_Edit)
            m_item.m_Edit.ReplaceSel(characters);
        return true;
    }
    default:
        return false;
    }
}

// The host may set another value when it hears that the list has closed.
void ItemKeyboard::PressInList(const MSG& message) {
    const LossWatch same(m_item.m_values);
    switch (ItemListKeyOf(message)) {
    case ItemListKey::PassOn:
        m_item.m_List.SendMessageA(message.message, message.wParam, message.lParam);
        break;
    case ItemListKey::Ignore:
        break;
    case ItemListKey::Cancel:
        if (m_item.m_options.Has(EGridOption::EscapeCancels))
            m_item.m_Value = m_item.m_valueBefore;
        [[fallthrough]];
    case ItemListKey::Take:
        m_item.CloseUp();
        if (same)
            m_item.Synchronize();
        break;
    case ItemListKey::Leave:
        m_item.CloseUp();
        LeaveByTab(m_item.m_hWnd, message);
        break;
    }
}

} // namespace korvel::internal
