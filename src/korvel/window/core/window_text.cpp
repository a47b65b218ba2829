#include "korvel/window/core/window.h"
#include "korvel/window/core/window_record.h"

#include <algorithm>

namespace korvel {

using namespace internal;

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

} // namespace korvel
