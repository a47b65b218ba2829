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

} // namespace korvel::internal
