#pragma once

#include "korvel/window/base/types.h"

namespace korvel::internal {

/// Watches one message that a display delivers, until its default is reached.
class InputDelivery {
public:
    InputDelivery(HWND window, UINT message);
    ~InputDelivery();
    InputDelivery(const InputDelivery&) = delete;
    InputDelivery& operator=(const InputDelivery&) = delete;

    bool WasLeftToDefault() const { return m_left; }

    /// The delivery of just this message to just this window, or null: messages that handlers send
    /// meanwhile are not the user's.
    static InputDelivery* Of(HWND window, UINT message);
    void LeaveToDefault() { m_left = true; }

private:
    HWND m_window;
    UINT m_message;
    bool m_left = false;
    InputDelivery* m_outer;
};

/// Called by the default procedure of all windows: nobody wanted the message.
void NoteDefaultReached(HWND window, UINT message);

/// For the default handling of a key or mouse message by a control that has a native widget. True: a
/// display with native widgets delivers just this message; it is now marked as left to the default, and
/// the widget acts after it. False: the control acts itself.
bool LeaveToNativeWidget(HWND window, UINT message);

} // namespace korvel::internal
