#pragma once

/// The measures of a report list, in pixels.
namespace korvel::internal {

inline constexpr int RowPadding = 4;      // above and below the text of a row together
inline constexpr int ImagePadding = 2;    // above and below an image together
inline constexpr int HeaderPadding = 8;   // above and below a column's title together
inline constexpr int CellTextInset = 4;   // left and right of a text
inline constexpr int StateIconWidth = 18; // the room of a check box
inline constexpr int CheckBoxSize = 14;

} // namespace korvel::internal
