#include "korvel/window/core/scroll_bar.h"

#include "korvel/window/core/client_area.h"
#include "korvel/window/core/window.h"
#include "korvel/window/core/window_changes.h"
#include "korvel/window/core/window_rectangle.h"

#include <algorithm>
#include <limits>

namespace korvel {

using namespace internal;

namespace {

ScrollBarState& EnsureScrollBar(WindowRecord& record, int bar) {
    if (!record.scrollBars)
        record.scrollBars = std::make_unique<ScrollBarStates>(ScrollBarStatesOf(record));
    return bar == SB_HORZ ? record.scrollBars->horizontal : record.scrollBars->vertical;
}

constexpr int FarthestScroll = 1 << 24; // as far as windows lie

void MoveBy(HWND window, int dx, int dy) {
    const RecordRef record = Find(window);
    if (!record)
        return;
    const CRect& rect = record->rect;
    MoveWindow(window, {rect.left + dx, rect.top + dy, rect.right + dx, rect.bottom + dy});
}

void ShowBar(WindowRecord& record, UINT style, bool shown) {
    const CRect former = ClientArea(record);
    record.style = shown ? record.style | style : record.style & ~style;
    TellDisplay(record, Aspect::Style | Aspect::Scroll);
    if (ClientArea(record) != former)
        TellSize(record);
}

} // namespace

int GetScrollPos(HWND window, int bar) {
    return OnOwner(
        window, [&](WindowRecord& record) { return ScrollBarStateOf(record, bar).position; });
}

int SetScrollPos(HWND window, int bar, int position) {
    return OnOwner(
        window,
        [&](WindowRecord& record) {
            if (!ScrollBarStyle(record, bar))
                return 0;
            ScrollBarState& changed = EnsureScrollBar(record, bar);
            const int former =
                std::exchange(changed.position, std::clamp(position, changed.minimum, changed.maximum));
            TellDisplay(record, Aspect::Scroll);
            return former;
        });
}

bool GetScrollRange(HWND window, int bar, int& minimum, int& maximum) {
    return OnOwner(
        window,
        [&](WindowRecord& record) {
            if (!ScrollBarStyle(record, bar))
                return false;
            const ScrollBarState current = ScrollBarStateOf(record, bar);
            minimum = current.minimum;
            maximum = current.maximum;
            return true;
        });
}

bool SetScrollRange(HWND window, int bar, int minimum, int maximum) {
    return OnOwner(
        window,
        [&](WindowRecord& record) {
            const UINT style = ScrollBarStyle(record, bar);
            if (!style || std::int64_t{maximum} - minimum > std::numeric_limits<int>::max())
                return false;
            ScrollBarState& changed = EnsureScrollBar(record, bar);
            changed.minimum = minimum;
            changed.maximum = std::max(minimum, maximum);
            changed.position = std::clamp(changed.position, changed.minimum, changed.maximum);
            ShowBar(record, style, maximum > minimum);
            return true;
        });
}

bool ScrollWindow(HWND window, int dx, int dy) {
    return OnOwner(
        window,
        [&](WindowRecord& record) {
            dx = std::clamp(dx, -FarthestScroll, FarthestScroll);
            dy = std::clamp(dy, -FarthestScroll, FarthestScroll);
            const std::vector<HWND> children = record.children; // handlers may change them
            for (const HWND child : children)
                MoveBy(child, dx, dy);
            Repaint(record);
            return true;
        });
}

} // namespace korvel
