#pragma once

#include "korvel/window/base/types.h"

#include <cstdint>

namespace korvel {

/// How high a list may drop that its owner does not limit otherwise, in pixels.
inline constexpr int HighestDropDown = 150;

// What a list reports to its owner (high word of WM_COMMAND's first parameter).

inline constexpr UINT ComboListSetFocus = 3;
inline constexpr UINT ComboListKillFocus = 4;
inline constexpr UINT ComboListChanged = 9;       ///< the value changed
inline constexpr UINT ComboListFinished = 0xFFFD; ///< -3: the user has chosen, the owner closes the list

/// What the context menu of a design list may offer; each also needs its flag of the enumeration.
enum ECommandList : std::uint32_t { eCommandAdd = 1, eCommandRename = 2, eCommandDelete = 4 };

/// Commands of the context menu, as a host may send them (WM_COMMAND). The list passes the data sheet of the
/// entry in the current row on to its owner, with its handle in lParam.
enum ComboListCommand : UINT {
    ComboCommandDataSheet = 15004,
    ComboCommandAddRootItem = 15005,
    ComboCommandAddRootGroup = 15006,
    ComboCommandAddItem = 15007,
    ComboCommandAddGroup = 15008,
    ComboCommandDelete = 15044,
    ComboCommandRename = 15045,
};

} // namespace korvel
