#pragma once

#include "korvel/window/core/window.h"

namespace korvel {

/// The code of a grid's WM_NOTIFY when its list has dropped.
inline constexpr UINT GridDropDownCode = 22;

/// What it carries.
struct GridDropDownNotice {
    NMHDR hdr;
    unsigned char isDropped = 1;
    const char* text = ""; ///< of the value; lent for the notice
};

} // namespace korvel
