#pragma once

#include <cstdint>

namespace korvel {

/// Bits of what a grid may show beyond the values.
enum class EGridOption : std::uint32_t {
    /// Cells of angles say their unit, as TextForm::WithAngleUnit writes it. An edit starts without it, and
    /// cells of lists stay as their drop-down list shows them.
    AngleUnit = 1,
};

} // namespace korvel
