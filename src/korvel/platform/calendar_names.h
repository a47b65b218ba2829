#pragma once

#include <array>
#include <string>

namespace korvel::platform {

/// The names of one locale, in the form that is used alone ("marzec", not "marca").
struct CalendarNames {
    std::array<std::string, 12> months; ///< January first
    std::array<std::string, 12> shortMonths;
    std::array<std::string, 7> days; ///< Sunday first
    std::array<std::string, 7> shortDays;
    std::string beforeNoon; ///< "AM"
    std::string afterNoon;  ///< "PM"
};

} // namespace korvel::platform
