#include "korvel/window/core/desktop.h"
#include "korvel/window/core/window_record.h"

#include <algorithm>

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

} // namespace

bool ShowWindow(HWND window, int command) {
    return OnOwner(
        window,
        [&](WindowRecord& record) {
            const bool show = command != SW_HIDE;
            const bool wasShown = record.IsShown();
            if (show == wasShown)
                return wasShown;
            if (!show) {
                TakeFocusAway(record, record.parent);
                TakeCaptureAway(record);
            }
            SendMessageA(window, WM_SHOWWINDOW, show, 0);
            if (IsWindow(window)) {
                SetStyleBit(record, WS_VISIBLE, show);
                TellDisplay(record, Aspect::Visible);
            }
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
            if (!enable) {
                TakeFocusAway(record, nullptr);
                TakeCaptureAway(record);
            }
            SetStyleBit(record, WS_DISABLED, !enable);
            TellDisplay(record, Aspect::Enabled);
            SendMessageA(window, WM_ENABLE, enable, 0);
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

bool SetWindowTextA(HWND window, const CString& text) {
    return SendMessageA(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str())) != 0;
}

CString GetWindowTextA(HWND window) {
    return OnOwner(
        window,
        [&](WindowRecord&) {
            const LRESULT length = std::max<LRESULT>(SendMessageA(window, WM_GETTEXTLENGTH, 0, 0), 0);
            CString text(static_cast<std::size_t>(length) + 1, '\0');
            const LRESULT copied =
                SendMessageA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
            text.resize(static_cast<std::size_t>(std::clamp<LRESULT>(copied, 0, length)));
            return text;
        });
}

CString GetClassNameA(HWND window) {
    return OnOwner(
        window, [](WindowRecord& record) { return record.className; });
}

void InvalidateRect(HWND window, const CRect* rect) {
    OnOwner(
        window, [&](WindowRecord& record) { Repaint(record, rect); });
}

void UpdateWindow(HWND) {}

void RedrawWindow(HWND window, UINT flags) {
    if (!(flags & RDW_INVALIDATE))
        return;
    OnOwner(window, [&](WindowRecord& record) {
        Repaint(record);
        if (flags & RDW_ALLCHILDREN)
            for (const HWND child : record.children)
                RedrawWindow(child, flags);
    });
}

} // namespace korvel
