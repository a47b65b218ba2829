#include "korvel/window/core/window_changes.h"

#include "korvel/window/core/client_area.h"
#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/window.h"

namespace korvel {

using namespace internal;

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

namespace internal {

void TellDisplay(WindowRecord& record, Aspects aspects) {
    if (!record.redraw)
        record.untold |= aspects;
    else if (IsOnDisplay(record))
        Display().Changed(record.handle, aspects);
}

bool Repaint(WindowRecord& record, const CRect* area) {
    if (!record.redraw || !IsOnDisplay(record))
        return false;
    const CRect inside = ClientArea(record);
    const CRect client{0, 0, inside.Width(), inside.Height()};
    const CRect clipped = area ? client.Intersected(*area) : client;
    if (clipped.IsRectEmpty())
        return false;
    Display().Invalidate(record.handle, clipped);
    return true;
}

} // namespace internal
} // namespace korvel
