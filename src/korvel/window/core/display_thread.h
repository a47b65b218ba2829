#pragma once

#include "korvel/window/core/display.h"
#include "korvel/window/core/thread_queue.h"
#include "korvel/window/core/window_record.h"

#include <type_traits>
#include <utility>

/// The display in force and its thread.
namespace korvel::internal {

/// Display(): see window/core/display.h.
IDisplay& DisplayInForce();
std::shared_ptr<ThreadQueue> DisplayQueue();
bool IsDisplayThread();
bool IsOnDisplay(const WindowRecord& record);
bool IsInForce(const IDisplay& display);

/// What makes the display that is in force until a host installs one. Returns true. Called when the library
/// is loaded; `make` is called whenever that display is needed and returns always the same one.
using DisplayMaker = IDisplay&();
bool SetDefaultDisplay(DisplayMaker* make);
IDisplay& DefaultDisplay();

/// Puts a display in force on the calling thread. True when the former one was on this thread too.
bool PutInForce(IDisplay& display);

/// Runs `function(IDisplay&)` on the display's thread and returns its result.
template <class Function>
auto OnDisplayThread(Function&& function) {
    using Result = decltype(function(std::declval<IDisplay&>()));
    if (IsDisplayThread())
        return function(DisplayInForce());
    const auto queue = DisplayQueue();
    if constexpr (std::is_void_v<Result>) {
        queue->Send(
            nullptr, [&] { function(DisplayInForce()); });
    } else {
        Result result{};
        queue->Send(nullptr, [&] { result = function(DisplayInForce()); });
        return result;
    }
}

} // namespace korvel::internal
