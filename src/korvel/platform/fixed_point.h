#pragma once

#include <cstdint>
#include <optional>

namespace korvel::internal {

/// A number with a fixed count of decimals, exact. Gives the decimals of a double without calling printf, and
/// rounds twice as printf and the format would.
struct FixedPoint {
    static constexpr int MostDecimals = 15;

    std::uint64_t integer = 0;
    std::uint64_t fraction = 0; ///< below ten to the power of the decimals
    int decimals = 0;
    bool negative = false; ///< may be set for zero

    /// The digits that printf("%.*f") writes, its exact halves to even included. Nothing for not-a-number and
    /// from two to the power of 64 on.
    static std::optional<FixedPoint> Of(double value, int decimals);

    /// Drops decimals, rounding the digits half away from zero.
    void RoundTo(int fewerDecimals);

    bool IsZero() const { return integer == 0 && fraction == 0; }
};

} // namespace korvel::internal
