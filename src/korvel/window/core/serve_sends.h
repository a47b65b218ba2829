#pragma once

#include "korvel/platform/export.h"

#include <functional>

namespace korvel {

/// Waits until `done` returns true, and meanwhile runs what other threads send to windows of the calling
/// thread: for whoever must wait for a thread that may be sending, as a plain join would wait for ever. What
/// was posted, timers and the user's input wait until the thread dispatches messages again.
///
///     worker.Stop();                                                    // asks it to end
///     ServeSendsUntil([&] { return worker.HasEnded(); });
///     worker.thread.join();
///
/// It never ends where the calling thread is within a send of the one that it waits for: that one goes on only
/// after the call which its send has made here has returned. There, ask it to stop, and wait later.
///
/// `done` is called on the calling thread, without a lock, after each send and at the latest every few
/// milliseconds; what it throws comes out. What a send throws goes to the exception handler, without one to
/// whoever next dispatches messages of the thread, and does not end the wait. Any thread.
KORVEL_API void ServeSendsUntil(const std::function<bool()>& done);

} // namespace korvel
