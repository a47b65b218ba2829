#pragma once

#include "korvel/editors/wnd_item.h"

namespace korvel::internal {

/// The keys of an item window, its editors and its list, and the wheel over that; for the time of one
/// message.
class ItemKeyboard {
public:
    explicit ItemKeyboard(CWndItem& item) : m_item(item) {}

    /// False for a message that is left to the window it goes to.
    bool Translate(const MSG& message);

private:
    bool Press(const MSG& message);
    void PressInList(const MSG& message);

    CWndItem& m_item;
};

} // namespace korvel::internal
