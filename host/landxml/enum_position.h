#pragma once

#include "korvel/values/enum_value.h"

#include <cstdint>

namespace korvel::inspector {

/// Positions in an enumeration whose entries are numbered from 0. They count from 1, because the null
/// position is the end.
inline EnumPosition PositionOf(long entry) {
    return reinterpret_cast<EnumPosition>(static_cast<std::uintptr_t>(entry) + 1);
}

inline long EntryAt(EnumPosition position) {
    return static_cast<long>(reinterpret_cast<std::uintptr_t>(position) - 1);
}

} // namespace korvel::inspector
