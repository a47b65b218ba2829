#pragma once

#include <string>

namespace korvel::internal {

/// Appends a number as a default stream writes it: six significant digits, "1e-05", "inf". Not-a-number is
/// "nan" whatever its sign. Independent of every locale.
void AppendStreamText(std::string& out, double value);

/// Appends a number with this many decimals, exactly rounded, halves to even; "inf" and "nan" as above.
void AppendFixedText(std::string& out, double value, int decimals);

/// Appends the shortest text that the nearest number of this type has: "0.1", "150", "1e+21"; "inf" and "nan"
/// as above.
void AppendShortestText(std::string& out, double value);
void AppendShortestText(std::string& out, float value);

} // namespace korvel::internal
