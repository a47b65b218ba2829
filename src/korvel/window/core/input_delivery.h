#pragma once

#include "korvel/window/core/window.h"

#include <optional>

namespace korvel::internal {

/// A character that the user types, while a WM_CHAR brings each of its bytes (platform/code_page.h).
struct TypedCharacter {
    CString bytes;
    std::size_t sent = 0;
    CString reached = {}; // the bytes that have come to the default
};

/// Watches one message that a display delivers, until its default is reached.
class InputDelivery {
public:
    explicit InputDelivery(const MSG& message, TypedCharacter* typed = nullptr);
    ~InputDelivery();
    InputDelivery(const InputDelivery&) = delete;
    InputDelivery& operator=(const InputDelivery&) = delete;

    bool WasLeftToDefault() const { return m_left; }

    /// The delivery of just this message to just this window, or null. What a handler sends meanwhile is not
    /// the user's, even if only the key, the character, the flags or the point of the mouse is another.
    static InputDelivery* Of(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void LeaveToDefault() { m_left = true; }
    /// Null for a message that types nothing.
    TypedCharacter* Typed() const { return m_typed; }

private:
    MSG m_message;
    TypedCharacter* m_typed;
    bool m_left = false;
    InputDelivery* m_outer;
};

/// Called by the default procedure of all windows: nobody wanted the message.
void NoteDefaultReached(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

/// For the default handling of WM_CHAR. Returns the whole character with its last byte, and nothing before;
/// nothing at all when one of its bytes was dropped on the way. A byte that a program sends is a character by
/// itself.
std::optional<CString> TypedText(HWND window, WPARAM byte);

/// For the default handling of a key or mouse message by a control that has a native widget. True: a display
/// with native widgets delivers just this message; it is now marked as left to the default, and the widget
/// acts after it. False: the control acts itself, as it does when a handler sends the message again.
bool LeaveToNativeWidget(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

} // namespace korvel::internal
