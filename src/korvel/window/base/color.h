#pragma once

#include "korvel/window/base/types.h"

namespace korvel::internal {

/// The color that lies `part` of `whole` on the way from one color to another, channel by channel, rounded
/// down; `part` is not above `whole`.
///
///     Mix(RGB(0, 0, 0), RGB(255, 255, 255), 1, 2)   // RGB(127, 127, 127)
constexpr COLORREF Mix(COLORREF from, COLORREF to, unsigned part, unsigned whole) {
    const auto mix = [&](unsigned a, unsigned b) { return (a * (whole - part) + b * part) / whole; };
    return RGB(mix(GetRValue(from), GetRValue(to)), mix(GetGValue(from), GetGValue(to)),
               mix(GetBValue(from), GetBValue(to)));
}

/// How well two colors are told apart, from 1 to 21: the contrast ratio of WCAG 2.
double ContrastOf(COLORREF a, COLORREF b);

/// The first color on the way from `wanted` to `clear` that is read well on a ground, in a contrast of 4.5;
/// black or white where none is.
COLORREF Legible(COLORREF wanted, COLORREF clear, COLORREF ground);

} // namespace korvel::internal
