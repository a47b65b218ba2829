#pragma once

#include <cstdint>

namespace korvel::internal {

/// A number from 1 to 99, all equally likely: the first that a 32-bit Mersenne twister with this seed gives.
///
///     RollDice(5489);   // 81
std::uint32_t RollDice(std::uint32_t seed);

} // namespace korvel::internal
