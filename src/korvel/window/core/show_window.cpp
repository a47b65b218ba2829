#include "korvel/platform/first_failure.h"
#include "korvel/window/core/capture.h"
#include "korvel/window/core/focus.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_changes.h"
#include "korvel/window/core/window_record.h"

namespace korvel {

using namespace internal;

namespace {

template <class Test>
bool HoldsUpToRoot(WindowRecord& record, Test test) {
    if (!test(record))
        return false;
    for (RecordRef level = Find(record.parent); level; level = Find(level->parent))
        if (!test(*level))
            return false;
    return true;
}

void SetStyleBit(WindowRecord& record, UINT bit, bool set) {
    record.style = set ? record.style | bit : record.style & ~bit;
}

void TakeInputAway(const WindowRecord& record, HWND heir, FocusCause cause, FirstFailure& failure) {
    failure.Try([&] { TakeFocusAway(record, heir, cause); });
    failure.Try([&] { TakeCaptureAway(record); });
}

} // namespace

bool ShowWindow(HWND window, int command) {
    return OnOwner(
        window,
        [&](WindowRecord& record) {
            const bool show = command != SW_HIDE;
            const bool wasShown = record.IsShown();
            if (show == wasShown)
                return wasShown;
            FirstFailure failure;
            if (!show)
                TakeInputAway(record, record.parent, FocusCause::Hidden, failure);
            failure.Try([&] { SendMessageA(window, WM_SHOWWINDOW, show, 0); });
            if (IsWindow(window)) {
                SetStyleBit(record, WS_VISIBLE, show);
                TellDisplay(record, Aspect::Visible);
            }
            failure.Rethrow();
            return wasShown;
        });
}

bool EnableWindow(HWND window, bool enable) {
    return OnOwner(
        window,
        [&](WindowRecord& record) {
            const bool wasDisabled = !record.IsSwitchedOn();
            if (enable == !wasDisabled)
                return wasDisabled;
            FirstFailure failure;
            if (!enable)
                TakeInputAway(record, nullptr, FocusCause::Disabled, failure);
            SetStyleBit(record, WS_DISABLED, !enable);
            TellDisplay(record, Aspect::Enabled);
            failure.Try([&] { SendMessageA(window, WM_ENABLE, enable, 0); });
            failure.Rethrow();
            return wasDisabled;
        });
}

bool IsWindowVisible(HWND window) {
    return OnOwner(
        window,
        [](WindowRecord& record) {
            return HoldsUpToRoot(
                record, [](const WindowRecord& level) { return level.IsShown(); });
        });
}

bool IsWindowEnabled(HWND window) {
    return OnOwner(
        window,
        [](WindowRecord& record) {
            return HoldsUpToRoot(
                record, [](const WindowRecord& level) { return level.IsSwitchedOn(); });
        });
}

} // namespace korvel
