#include "korvel/window/core/thread_queue.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_changes.h"
#include "korvel/window/core/window_record.h"
#include "korvel/window/core/window_table.h"

namespace korvel {

using namespace internal;

LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return OnOwner(
        window,
        [&](WindowRecord& record) {
            return CallWindowProcA(record.procedure, record.handle, message, wParam, lParam);
        });
}

bool PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto owner = WindowTable::Instance().OwnerOf(window);
    return owner && owner->Post(window, [=] { SendMessageA(window, message, wParam, lParam); });
}

LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return procedure ? procedure(window, message, wParam, lParam) : 0;
}

LPARAM GetWindowLongPtrA(HWND window, int index) {
    return OnOwner(
        window,
        [&](WindowRecord& record) -> LPARAM {
            switch (index) {
            case GWLP_WNDPROC:
                return reinterpret_cast<LPARAM>(record.procedure);
            case GWLP_ID:
                return record.id;
            case GWL_STYLE:
                return record.style;
            case GWL_EXSTYLE:
                return record.exStyle;
            case GWLP_USERDATA:
                return record.userData;
            default:
                return 0;
            }
        });
}

LPARAM SetWindowLongPtrA(HWND window, int index, LPARAM value) {
    return OnOwner(
        window,
        [&](WindowRecord& record) -> LPARAM {
            const LPARAM former = GetWindowLongPtrA(window, index);
            switch (index) {
            case GWLP_WNDPROC:
                record.procedure = reinterpret_cast<WNDPROC>(value);
                break;
            case GWLP_ID:
                record.id = static_cast<int>(value);
                break;
            case GWL_STYLE:
                record.style = static_cast<UINT>(value);
                TellDisplay(record, Aspect::Style | Aspect::Visible | Aspect::Enabled);
                SendMessageA(window, WM_STYLECHANGED, static_cast<WPARAM>(index), 0);
                break;
            case GWL_EXSTYLE:
                record.exStyle = static_cast<UINT>(value);
                TellDisplay(record, Aspect::Style);
                SendMessageA(window, WM_STYLECHANGED, static_cast<WPARAM>(index), 0);
                break;
            case GWLP_USERDATA:
                record.userData = value;
                break;
            default:
                break;
            }
            return former;
        });
}

LRESULT NotifyParentCommand(HWND control, UINT code) {
    return OnOwner(
        control,
        [&](WindowRecord& record) {
            return SendMessageA(record.ParentOrOwner(), WM_COMMAND,
                                MAKEWPARAM(static_cast<unsigned>(record.id), code),
                                reinterpret_cast<LPARAM>(control));
        });
}

LRESULT NotifyParent(HWND control, UINT code, NMHDR& header) {
    return OnOwner(
        control,
        [&](WindowRecord& record) {
            header = {control, static_cast<std::uintptr_t>(record.id), code};
            return SendMessageA(record.ParentOrOwner(), WM_NOTIFY, header.idFrom,
                                reinterpret_cast<LPARAM>(&header));
        });
}

} // namespace korvel
