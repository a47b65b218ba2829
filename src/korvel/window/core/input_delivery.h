#pragma once

#include "korvel/window/base/types.h"

#include <optional>

namespace korvel::internal {

/// A character that the user types, while a WM_CHAR brings each of its bytes (platform/code_page.h).
struct TypedCharacter {
    std::size_t length = 1;
    std::size_t sent = 0;
    CString reached; // the bytes that have come to the default
};

/// Watches one message that a display delivers, until its default is reached.
class InputDelivery {
public:
    InputDelivery(HWND window, UINT message, TypedCharacter* typed = nullptr);
    ~InputDelivery();
    InputDelivery(const InputDelivery&) = delete;
    InputDelivery& operator=(const InputDelivery&) = delete;

    bool WasLeftToDefault() const { return m_left; }

    /// The delivery of just this message to just this window, or null: messages that handlers send
    /// meanwhile are not the user's.
    static InputDelivery* Of(HWND window, UINT message);
    void LeaveToDefault() { m_left = true; }
    /// Null for a message that types nothing.
    TypedCharacter* Typed() const { return m_typed; }

private:
    HWND m_window;
    UINT m_message;
    TypedCharacter* m_typed;
    bool m_left = false;
    InputDelivery* m_outer;
};

/// Called by the default procedure of all windows: nobody wanted the message.
void NoteDefaultReached(HWND window, UINT message);

/// For the default handling of a WM_CHAR: with the last byte of a character that the user types, the whole of it;
/// nothing with those before, and nothing at all when one of them was dropped on its way. A byte that a program sends
/// is a character by itself.
std::optional<CString> TypedText(HWND window, char byte);

/// For the default handling of a key or mouse message by a control that has a native widget. True: a
/// display with native widgets delivers just this message; it is now marked as left to the default, and
/// the widget acts after it. False: the control acts itself.
bool LeaveToNativeWidget(HWND window, UINT message);

} // namespace korvel::internal
