#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace korvel::inspector {

/// What a text of the document means as a value of XML's simple types. Nothing when it is not such a value;
/// blanks around it do not count. Numbers have a point whatever the user's locale is.

/// A finite number: "-1.5", "+2", ".5", "1e3". Not "INF" and "NaN", see IsNotFinite.
std::optional<double> ReadDouble(std::string_view text);

/// True for the words by which XML writes infinities and not-a-number.
bool IsNotFinite(std::string_view text);

/// Nothing for a number that takes more bits; it may still be an integer of XML, which has no limits.
std::optional<std::int32_t> ReadInteger(std::string_view text);
bool IsInteger(std::string_view text);

/// "true", "false", "1", "0".
std::optional<bool> ReadFlag(std::string_view text);

/// The day as a date double; "2024-05-17", also with a time zone after it, which does not move the day.
std::optional<double> ReadDate(std::string_view text);

/// The time zone after a date that ReadDate reads, as it is written: "Z", "+03:00"; mostly empty.
std::string_view ZoneOfDate(std::string_view text);

/// True for a time ("08:30:00.5Z") or a date with a time ("2024-05-17T08:30:00+02:00").
bool IsTime(std::string_view text);
bool IsDateTime(std::string_view text);

/// "75,75,0": red, green, blue. Returned as a color word, red in the lowest byte.
std::optional<std::uint32_t> ReadColor(std::string_view text);

} // namespace korvel::inspector
