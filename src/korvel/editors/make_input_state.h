#pragma once

#include <cstdint>
#include <memory>

namespace korvel {
class CComboList;
class IGridCtrlComboBoxInputState;
} // namespace korvel

namespace korvel::internal {

/// The state for a list of an enumeration with these flags; null for no such mode.
std::unique_ptr<IGridCtrlComboBoxInputState> MakeInputState(CComboList& list, std::uint32_t enumFlags);

} // namespace korvel::internal
