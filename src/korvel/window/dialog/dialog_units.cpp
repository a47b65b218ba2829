#include "korvel/window/dialog/dialog_units.h"

#include "korvel/window/core/display_thread.h"
#include "korvel/window/core/window.h"

namespace korvel::internal {
namespace {

// How many units make up one average character across, and one line down.
constexpr int UnitsAcross = 4;
constexpr int UnitsDown = 8;

// The window model takes the average from both alphabets.
CSize BaseUnits() {
    static const CString letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    const int width = OnDisplayThread([](IDisplay& display) { return display.TextWidth(letters); });
    return {(width / 26 + 1) / 2, GetSystemMetrics(SM_KORVEL_TEXTHEIGHT)};
}

// Halves are rounded away from zero.
int Scale(int units, int base, int divisor) {
    const std::int64_t product = std::int64_t{units} * base;
    const std::int64_t half = product < 0 ? -divisor / 2 : divisor / 2;
    return static_cast<int>((product + half) / divisor);
}

} // namespace

CRect PixelsOf(const CRect& units) {
    const CSize base = BaseUnits();
    return {Scale(units.left, base.cx, UnitsAcross), Scale(units.top, base.cy, UnitsDown),
            Scale(units.right, base.cx, UnitsAcross), Scale(units.bottom, base.cy, UnitsDown)};
}

CRect PixelsOf(const DialogPlace& place) {
    CRect rect = PixelsOf(CRect{0, 0, place.width, place.height});
    const CPoint corner = PixelsOf(CRect{place.x, place.y, 0, 0}).TopLeft();
    rect.OffsetRect(corner.x, corner.y);
    return rect;
}

} // namespace korvel::internal
