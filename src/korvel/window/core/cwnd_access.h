#pragma once

#include "korvel/window/core/window_record.h"

namespace korvel::internal {

/// The ties between a window and its object.
struct WindowAccess {
    /// The object's procedure comes before the one that the window has.
    static void Attach(CWnd& object, WindowRecord& record);
    /// Puts the former procedure back, where the object's is still the window's.
    static void RestoreProcedure(WindowRecord& record);
    /// Offers what a control sent its parent to the control's own object. True: handled.
    static bool OfferToControl(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
};

} // namespace korvel::internal
