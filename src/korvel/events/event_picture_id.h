#pragma once

#include "korvel/window/base/types.h"

namespace korvel::internal {

inline constexpr UINT EventStripPicture = 15003;

} // namespace korvel::internal
