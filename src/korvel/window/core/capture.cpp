#include "korvel/window/core/capture.h"

#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_tree.h"

namespace korvel {

using namespace internal;

namespace {

// Touched by the display's thread only.
HWND& TheCapture() {
    static HWND window = nullptr;
    return window;
}

HWND MoveCapture(HWND window) {
    const HWND former = std::exchange(TheCapture(), window);
    if (former == window)
        return former;
    Display().Capture(window);
    SendMessageA(former, WM_CAPTURECHANGED, 0, reinterpret_cast<LPARAM>(window));
    return former;
}

} // namespace

HWND SetCapture(HWND window) {
    return OnOwner(
        window,
        [&](WindowRecord& record) -> HWND {
            return IsOnDisplay(record) && !record.destroying ? MoveCapture(window) : nullptr;
        });
}

void ReleaseCapture() {
    if (IsDisplayThread())
        MoveCapture(nullptr);
}

HWND GetCapture() {
    return IsDisplayThread() ? TheCapture() : nullptr;
}

namespace internal {

void TakeCaptureAway(const WindowRecord& record) {
    if (IsOnDisplay(record) && IsWithin(record.handle, TheCapture()))
        MoveCapture(nullptr);
}

void ForgetCapture(HWND window) {
    if (TheCapture() == window) {
        TheCapture() = nullptr;
        Display().Capture(nullptr);
    }
}

void ForgetCapture() {
    TheCapture() = nullptr;
}

} // namespace internal
} // namespace korvel
