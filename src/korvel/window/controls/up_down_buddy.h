#pragma once

#include "korvel/window/controls/up_down_state.h"

#include <optional>

/// The field beside an up-down control.
namespace korvel::internal {

/// Puts the control at the buddy's side and takes its arrow keys, as the styles say. Null: none.
void SetBuddy(UpDownState& control, HWND buddy);
/// The number that the buddy shows; nothing when it is none.
std::optional<int> ReadBuddy(const UpDownState& control);
void WriteBuddy(UpDownState& control);

/// Moves by one step with an arrow: UDN_DELTAPOS, the position, the scroll message.
void Step(UpDownState& control, UpDownState::Arrow arrow);
/// The key or the mouse button of a step is released: SB_ENDSCROLL.
void EndSteps(const UpDownState& control);

} // namespace korvel::internal
