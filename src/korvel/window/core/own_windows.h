#pragma once

#include "korvel/window/core/window_record.h"

#include <vector>

/// The records of the calling thread's windows; window_record.h says how one is found. When the thread ends,
/// they are gone.
namespace korvel::internal {

/// The record of a new window.
RecordRef AddOwnWindow();
/// All of them in order of creation, parents before their children.
std::vector<RecordRef> OwnWindows();
/// Ends the handle of an own window and releases whoever waits for it.
void RemoveOwnWindow(HWND window);

} // namespace korvel::internal
