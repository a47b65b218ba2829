#pragma once

#include <cstdint>
#include <memory>

namespace korvel {
class IGridCtrlComboBoxInputState;
}

namespace korvel::internal {

class ComboView;

/// The state for a list of an enumeration with these flags; null for no such mode.
std::unique_ptr<IGridCtrlComboBoxInputState> MakeInputState(ComboView& view, std::uint32_t enumFlags);

} // namespace korvel::internal
