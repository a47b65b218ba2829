#pragma once

#include "korvel/values/variant_value.h"

#include <cstdint>
#include <optional>

namespace korvel::internal {

/// A number from 1 to 99, all equally likely: the first that a 32-bit Mersenne twister with this seed gives.
///
///     RollDice(5489);   // 81
std::uint32_t RollDice(std::uint32_t seed);

/// The random number that the present second gives; none when it is that of the value.
std::optional<CVariantValue> Roll(const CVariantValue& value);

} // namespace korvel::internal
