#include "korvel/window/base/color.h"

#include <algorithm>
#include <cmath>

namespace korvel::internal {
namespace {

// Relative luminance and its constants: WCAG 2.
double Luminance(COLORREF color) {
    const auto linear = [](unsigned channel) {
        const double part = channel / 255.0;
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(GetRValue(color)) + 0.7152 * linear(GetGValue(color)) +
           0.0722 * linear(GetBValue(color));
}

} // namespace

double ContrastOf(COLORREF a, COLORREF b) {
    const auto [dark, light] = std::minmax({Luminance(a), Luminance(b)});
    return (light + 0.05) / (dark + 0.05);
}

COLORREF Legible(COLORREF wanted, COLORREF clear, COLORREF ground) {
    constexpr double WellRead = 4.5;
    constexpr unsigned Steps = 8;
    for (unsigned step = 0; step <= Steps; ++step)
        if (const COLORREF color = Mix(wanted, clear, step, Steps); ContrastOf(color, ground) >= WellRead)
            return color;
    const COLORREF black = RGB(0, 0, 0);
    const COLORREF white = RGB(255, 255, 255);
    return ContrastOf(black, ground) > ContrastOf(white, ground) ? black : white;
}

} // namespace korvel::internal
