#pragma once

#include <cstdint>

namespace korvel {

/// A moment of the Gregorian calendar, in local time.
struct SYSTEMTIME {
    std::uint16_t wYear = 0;
    std::uint16_t wMonth = 0;     // 1 to 12
    std::uint16_t wDayOfWeek = 0; // 0 is Sunday; looked at by nobody who sets a time
    std::uint16_t wDay = 0;
    std::uint16_t wHour = 0;
    std::uint16_t wMinute = 0;
    std::uint16_t wSecond = 0;
    std::uint16_t wMilliseconds = 0;
    bool operator==(const SYSTEMTIME&) const = default;
};

} // namespace korvel
