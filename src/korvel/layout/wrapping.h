#pragma once

/// Sums of coordinates that wrap around at 32 bits, so that a move there and back ends where it began,
/// whatever the numbers are.
namespace korvel::internal {

constexpr int WrappingSum(int a, int b) {
    return static_cast<int>(static_cast<unsigned>(a) + static_cast<unsigned>(b));
}

constexpr int WrappingDifference(int a, int b) {
    return static_cast<int>(static_cast<unsigned>(a) - static_cast<unsigned>(b));
}

} // namespace korvel::internal
