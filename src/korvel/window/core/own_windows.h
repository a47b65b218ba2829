#pragma once

#include "korvel/window/core/window_record.h"

#include <vector>

/// How the records of the calling thread's windows come and go; window_record.h tells how they are found.
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
