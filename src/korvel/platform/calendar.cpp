#include "korvel/platform/calendar.h"

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <mutex>
#include <string>

namespace korvel::platform {
namespace {

using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days DayZero = std::chrono::December / 30 / 1899;
constexpr int FirstYear = 100;
constexpr int LastYear = 9999;
constexpr double FirstDay = -657434; // 1 January of the first year
constexpr double EndDay = 2958466;   // after 31 December of the last year
constexpr int SecondsPerDay = 86400;

// 31 December 3000, 23:59:59 UTC: the last second that hosts expect to have a local time.
constexpr std::int64_t LastEpochSecond = 32535215999;

bool InYears(const year_month_day& date) {
    return date.ok() && date.year() >= std::chrono::year(FirstYear) &&
           date.year() <= std::chrono::year(LastYear);
}

// localtime_r need not notice that the zone has changed. Looking may cost a call of the system, and a million
// times may be written at once, so it is done when TZ is another one and when the last look is a second old.
void FollowZone() {
    using Clock = std::chrono::steady_clock;
    static std::mutex mutex;
    static std::optional<std::string> zoneThen; // none: TZ was not set
    static std::optional<Clock::time_point> lastLook;
    const char* const value = std::getenv("TZ");
    const auto zone = value ? std::optional<std::string>(value) : std::nullopt;
    const auto now = Clock::now();
    const std::lock_guard lock(mutex);
    if (lastLook && now - *lastLook < std::chrono::seconds(1) && zone == zoneThen)
        return;
    tzset();
    zoneThen = zone;
    lastLook = now;
}

} // namespace

std::optional<CalendarFields> FieldsFromDate(double date) {
    // The day -657434 reaches down to -657434.99: its fraction counts forward like any other.
    if (!(date > FirstDay - 1 && date < EndDay))
        return std::nullopt;
    const double wholeDays = std::trunc(date);
    auto seconds = static_cast<int>(std::floor(std::fabs(date - wholeDays) * SecondsPerDay + 0.5));
    sys_days day = DayZero + std::chrono::days(static_cast<int>(wholeDays));
    if (seconds == SecondsPerDay) {
        seconds = 0;
        day += std::chrono::days(1);
    }
    const year_month_day calendarDay(day);
    if (!InYears(calendarDay))
        return std::nullopt;
    CalendarFields fields;
    fields.year = static_cast<int>(calendarDay.year());
    fields.month = static_cast<int>(static_cast<unsigned>(calendarDay.month()));
    fields.day = static_cast<int>(static_cast<unsigned>(calendarDay.day()));
    fields.hour = seconds / 3600;
    fields.minute = seconds / 60 % 60;
    fields.second = seconds % 60;
    fields.weekday = static_cast<int>(std::chrono::weekday(day).c_encoding());
    fields.dayOfYear = static_cast<int>((day - sys_days(calendarDay.year() / 1 / 1)).count()) + 1;
    return fields;
}

std::optional<double> DateFromFields(const CalendarFields& fields) {
    const auto inRange = [](int value, int first, int last) { return value >= first && value <= last; };
    if (!inRange(fields.year, FirstYear, LastYear) || !inRange(fields.month, 1, 12) ||
        !inRange(fields.day, 1, 31) || !inRange(fields.hour, 0, 23) || !inRange(fields.minute, 0, 59) ||
        !inRange(fields.second, 0, 59))
        return std::nullopt;
    const year_month_day date(std::chrono::year(fields.year),
                              std::chrono::month(static_cast<unsigned>(fields.month)),
                              std::chrono::day(static_cast<unsigned>(fields.day)));
    if (!date.ok())
        return std::nullopt;
    const double days = static_cast<double>((sys_days(date) - DayZero).count());
    const double time =
        (fields.hour * 3600 + fields.minute * 60 + fields.second) / static_cast<double>(SecondsPerDay);
    return days < 0 ? days - time : days + time;
}

std::optional<CalendarFields> LocalFieldsFromEpoch(std::int64_t seconds) {
    if (seconds < 0 || seconds > LastEpochSecond)
        return std::nullopt;
    FollowZone();
    const std::time_t time = seconds;
    std::tm local{};
    if (localtime_r(&time, &local) == nullptr)
        return std::nullopt;
    CalendarFields fields;
    fields.year = local.tm_year + 1900;
    fields.month = local.tm_mon + 1;
    fields.day = local.tm_mday;
    fields.hour = local.tm_hour;
    fields.minute = local.tm_min;
    fields.second = local.tm_sec;
    fields.weekday = local.tm_wday;
    fields.dayOfYear = local.tm_yday + 1;
    return fields;
}

} // namespace korvel::platform
