#include "korvel/parser/number_of_text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <locale>
#include <sstream>
#include <string>

namespace korvel::internal {

namespace {

// std::from_chars leaves a value outside the range of a double unset, and does not say on which side.
double OutOfRangeDouble(std::string_view text) {
    std::istringstream stream{std::string(text)};
    stream.imbue(std::locale::classic());
    double value = 0;
    stream >> value;
    return stream.fail() ? std::numeric_limits<double>::infinity() : value;
}

} // namespace

int IntegerOfDigits(NumberSign sign, std::string_view digits) {
    using Bounds = std::numeric_limits<std::int32_t>;
    const std::int64_t bound = sign == NumberSign::Negative ? -std::int64_t(Bounds::min()) : Bounds::max();
    std::int64_t magnitude = 0;
    for (const char digit : digits)
        magnitude = std::min(magnitude * 10 + (digit - '0'), bound);
    return static_cast<int>(sign == NumberSign::Negative ? -magnitude : magnitude);
}

double DoubleOfText(NumberSign sign, std::string_view text) {
    double value = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), value).ec != std::errc())
        value = OutOfRangeDouble(text);
    return sign == NumberSign::Negative ? -value : value;
}

} // namespace korvel::internal
