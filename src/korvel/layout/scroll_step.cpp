#include "korvel/layout/scroll_step.h"

#include "korvel/layout/wrapping.h"
#include "korvel/window/core/scroll_bar.h"
#include "korvel/window/core/window.h"

#include <algorithm>
#include <cstdint>

namespace korvel::internal {
namespace {

constexpr int KeptOfPage = 10; // pixels that a page leaves in sight
constexpr int LinesInPage = 10;

std::int64_t Wanted(const ScrollStep& step) {
    const int page = std::max(step.extent, KeptOfPage) - KeptOfPage;
    const int line = page / LinesInPage;
    const std::int64_t position = step.position;
    switch (step.code) {
    case SB_LINEUP:
    case SB_TOP:
        return position - line;
    case SB_LINEDOWN:
    case SB_BOTTOM:
        return position + line;
    case SB_PAGEUP:
        return position - page;
    case SB_PAGEDOWN:
        return position + page;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK:
        return step.thumb;
    default:
        return position;
    }
}

} // namespace

int NextPosition(const ScrollStep& step) {
    std::int64_t wanted = Wanted(step);
    if (wanted < step.minimum)
        wanted = 0;
    if (wanted > step.maximum)
        wanted = step.maximum;
    return static_cast<int>(wanted);
}

void ScrollByCode(HWND window, int bar, UINT code, int thumb) {
    const CRect client = GetClientRect(window);
    ScrollStep step{code, GetScrollPos(window, bar), thumb, bar == SB_HORZ ? client.right : client.bottom};
    GetScrollRange(window, bar, step.minimum, step.maximum);
    const int position = NextPosition(step);
    SetScrollPos(window, bar, position);
    const int distance = WrappingDifference(step.position, position);
    if (bar == SB_HORZ)
        ScrollWindow(window, distance, 0);
    else
        ScrollWindow(window, 0, distance);
}

} // namespace korvel::internal
