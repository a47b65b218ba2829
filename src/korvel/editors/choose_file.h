#pragma once

#include "korvel/values/variant_value.h"

#include <optional>

namespace korvel {
class CWnd;
}

namespace korvel::internal {

/// Lets the file value of a path ask the user for another one. None when there is no file value, and when it
/// chooses nothing. `parent` may be null. What it throws passes through.
std::optional<CVariantValue> ChooseFile(const CVariantValue& path, CWnd* parent);

} // namespace korvel::internal
