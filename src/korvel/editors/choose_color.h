#pragma once

#include "korvel/values/variant_value.h"
#include "korvel/window/core/cwnd.h"

#include <optional>

namespace korvel::internal {

/// Asks the user for another color than that of a value of type DT_ColorRGB or DT_ColorARGB; the latter with
/// its opacity, any other comes back opaque. None when the user cancels. `parent` may be null.
///
///     const auto blue = ChooseColor(red, &grid);   // of the same type
std::optional<CVariantValue> ChooseColor(const CVariantValue& color, CWnd* parent);

} // namespace korvel::internal
