#pragma once

#include "korvel/window/base/types.h"

/// How an item of a layout follows its host window; bits that may be combined. The edges are those of the
/// rectangle that the pane around the item is handed. CPaneManager lists where the bits do something else:
/// ItemAlignRight of a pane itself, above all.
namespace korvel {

inline constexpr UINT ItemGrowX = 0x0001;        // stretches horizontally
inline constexpr UINT ItemGrowY = 0x0002;        // stretches vertically
inline constexpr UINT ItemAlignLeft = 0x0100;    // keeps its width at the left edge
inline constexpr UINT ItemAlignRight = 0x0200;   // keeps its width at the right edge
inline constexpr UINT ItemAlignCenterX = 0x0400; // keeps its width in the middle
inline constexpr UINT ItemAlignTop = 0x1000;     // keeps its height at the upper edge
inline constexpr UINT ItemAlignCenterY = 0x2000; // keeps its height in the middle
inline constexpr UINT ItemAlignBottom = 0x4000;  // keeps its height at the lower edge
inline constexpr UINT ItemKeepRow = 0x8000;      // kept for hosts that set it; moves nothing

} // namespace korvel
