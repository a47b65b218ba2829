#pragma once

#include "korvel/window/core/window_record.h"

#include <optional>
#include <string_view>

namespace korvel::internal {

/// The class registered under a name, whatever its case.
std::optional<WindowClass> FindWindowClass(std::string_view name);

} // namespace korvel::internal
