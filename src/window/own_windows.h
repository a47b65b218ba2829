#pragma once

#include "window/window_record.h"

#include <vector>

/// The records of the calling thread's windows. No other thread touches them, so that a window is found
/// (see Find in window_record.h) without a lock: every message does it several times.
namespace korvel::internal {

/// The record of a new window.
RecordRef AddOwnWindow();
/// All of them in order of creation, parents before their children.
std::vector<RecordRef> OwnWindows();
/// Ends the handle of an own window and releases whoever waits for it.
void RemoveOwnWindow(HWND window);
/// Forgets the windows of the thread, which ends: their objects are detached, no message is sent.
void EndOwnWindows();

} // namespace korvel::internal
