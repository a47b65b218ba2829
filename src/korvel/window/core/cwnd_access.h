#pragma once

#include "korvel/window/core/cwnd.h"
#include "korvel/window/core/window_record.h"

namespace korvel {

/// The ties between a window and its object.
struct WindowAccess {
    /// The object's procedure comes before the one that the window has.
    static void Attach(CWnd& object, internal::WindowRecord& record);
    /// The procedure stays where it is; without object it passes on to the former one.
    static void Detach(internal::WindowRecord& record);
    /// Offers what a control sent its parent to the control's own object. True: handled.
    static bool OfferToControl(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
};

} // namespace korvel
