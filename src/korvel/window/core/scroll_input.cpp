#include "korvel/window/core/input.h"
#include "korvel/window/core/scroll_bar.h"
#include "korvel/window/core/uncaught.h"
#include "korvel/window/core/window.h"

namespace korvel::input {

void ScrollBarUsed(HWND window, int bar, UINT code, int position) {
    internal::Guarded([&] {
        if (IsWindowEnabled(window))
            SendMessageA(window, bar == SB_HORZ ? WM_HSCROLL : WM_VSCROLL,
                         MAKEWPARAM(code, static_cast<unsigned>(position)), 0);
    });
}

} // namespace korvel::input
