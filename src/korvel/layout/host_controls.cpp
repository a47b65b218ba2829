#include "korvel/layout/host_controls.h"

#include "korvel/layout/wrapping.h"
#include "korvel/window/core/window.h"

namespace korvel::internal {

HWND ControlOf(HWND host, int id) {
    return id == NoControlId ? nullptr : GetDlgItem(host, id);
}

CRect ClientRectangleOf(HWND window, HWND host) {
    if (!IsWindow(window))
        return {};
    const CRect screen = GetWindowRect(window);
    const CPoint corner = ScreenToClient(host, screen.TopLeft());
    return {corner.x, corner.y, WrappingSum(corner.x, screen.Width()),
            WrappingSum(corner.y, screen.Height())};
}

} // namespace korvel::internal
