#pragma once

#include "korvel/editors/grid_ctrl_edit.h"
#include "korvel/values/variant_value.h"
#include "korvel/window/core/cwnd.h"

#include <optional>

namespace korvel::internal {

/// The value after an edit that needs no editor in the item window: a flag toggled, a color or a file chosen
/// in a dialog over `parent`. None when the user cancels, when nothing changes, and for every other value.
std::optional<CVariantValue> EditAtOnce(const CVariantValue& value, CWnd* parent);

/// Ends the field's edit of a value of this type. What is refused without a text leaves it as Text 45 with
/// the typed text; what the field throws with a text leaves it as it is.
void EndField(CGridCtrlEdit& field, EDataTyps type);

} // namespace korvel::internal
