#pragma once

#include <cstdint>

namespace korvel::internal {

/// A position between two numbers, which may be given in either order.
struct ControlRange {
    int first = 0;
    int second = 100;
    int position = 0;

    int Lower() const { return first < second ? first : second; }
    int Upper() const { return first < second ? second : first; }
    /// The nearest number inside; sums are computed in more bits than a position has.
    int Clamped(std::int64_t value) const {
        if (value < Lower())
            return Lower();
        return value > Upper() ? Upper() : static_cast<int>(value);
    }
    bool Holds(std::int64_t value) const { return Clamped(value) == value; }
};

} // namespace korvel::internal
