#include "korvel/window/core/screens.h"

#include "korvel/window/core/client_area.h"
#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/window.h"

#include <algorithm>

namespace korvel::internal {
namespace {

std::int64_t AreaOf(const CRect& rect) {
    return rect.IsRectEmpty() ? 0 : std::int64_t{rect.Width()} * rect.Height();
}

CRect ScreenOf(const std::vector<CRect>& screens, HWND window) {
    const CRect place = GetWindowRect(window);
    return *std::max_element(screens.begin(), screens.end(), [&](const CRect& a, const CRect& b) {
        return AreaOf(a.Intersected(place)) < AreaOf(b.Intersected(place));
    });
}

// Where a length begins that lies between two edges as far as it fits.
int Between(int start, int length, int low, int high) {
    return std::max(low, std::min(start, high - length));
}

CRect MovedOnto(const CRect& screen, const CRect& rect) {
    const int left = Between(rect.left, rect.Width(), screen.left, screen.right);
    const int top = Between(rect.top, rect.Height(), screen.top, screen.bottom);
    return {left, top, left + rect.Width(), top + rect.Height()};
}

std::vector<CRect> AllScreens() {
    return OnDisplayThread([](IDisplay& display) { return display.Screens(); });
}

} // namespace

CRect OnSomeScreen(const CRect& rect, HWND near) {
    const CRect wanted = Placeable(rect);
    const std::vector<CRect> screens = AllScreens();
    const auto shows = [&](const CRect& screen) { return !screen.Intersected(wanted).IsRectEmpty(); };
    if (screens.empty() || std::any_of(screens.begin(), screens.end(), shows))
        return wanted;
    return MovedOnto(ScreenOf(screens, near), wanted);
}

CRect WhollyOnScreen(const CRect& rect, CPoint near) {
    const CRect wanted = Placeable(rect);
    const std::vector<CRect> screens = AllScreens();
    if (screens.empty())
        return wanted;
    const auto found =
        std::ranges::find_if(screens, [&](const CRect& screen) { return screen.PtInRect(near); });
    return MovedOnto(found == screens.end() ? screens.front() : *found, wanted);
}

} // namespace korvel::internal
