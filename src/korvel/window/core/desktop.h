#pragma once

#include "korvel/window/core/thread_queue.h"
#include "korvel/window/core/window_record.h"

#include <type_traits>
#include <utility>

/// The display in force and what lives on its thread alone: focus, capture and timers.
namespace korvel::internal {

std::shared_ptr<ThreadQueue> DisplayQueue();
bool IsDisplayThread();
bool IsOnDisplay(const WindowRecord& record);
bool IsInForce(const IDisplay& display);
/// Asks the display for a call of input::DispatchMessages when the queue is that of its thread. Any thread.
void WakeDisplayOf(const ThreadQueue& queue);

/// Runs `function(IDisplay&)` on the display's thread and answers its result.
template <class Function>
auto OnDisplayThread(Function&& function) {
    using Result = decltype(function(std::declval<IDisplay&>()));
    if (IsDisplayThread())
        return function(Display());
    const auto queue = DisplayQueue();
    if constexpr (std::is_void_v<Result>) {
        queue->Send(
            nullptr, [&] { function(Display()); });
    } else {
        Result result{};
        queue->Send(nullptr, [&] { result = function(Display()); });
        return result;
    }
}

/// Clears everything that refers to a window whose end is near: timers, capture, focus, its object. Sends
/// nothing.
void ForgetWindow(WindowRecord& record);

// --- focus ---

enum class FocusOrigin { Program, Display };

/// Moves the focus: display first, then WM_KILLFOCUS, then WM_SETFOCUS; stops when a handler moves it on.
void MoveFocus(HWND window, FocusOrigin origin);
/// Moves the focus to `heir` (null, or where it cannot go: to none) when it lies in the window or below.
void TakeFocusAway(const WindowRecord& record, HWND heir);
bool CanTakeFocus(HWND window);
/// The box that is about to be shown takes the focus away; answers who has it to get back.
HWND LendFocusToBox();
void ReturnFocusFromBox(HWND former);

// --- for a change of the display ---

void TellFocusAndCapture(IDisplay& display);
void RestartTimers(IDisplay& display);
void ForgetFocusAndCapture();
void ForgetTimers();

// --- one window's share ---

void ForgetFocus(HWND window);
void ForgetCapture(HWND window);
void ForgetTimers(HWND window);
/// Ends the capture when the window or a descendant has it.
void TakeCaptureAway(const WindowRecord& record);

/// True for the window itself and for its descendants.
bool IsWithin(HWND ancestor, HWND window);
/// The point on the screen as rectangles in memory tell it.
CPoint ScreenPointInMemory(HWND window, CPoint client);

} // namespace korvel::internal
