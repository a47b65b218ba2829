#include "korvel/output/stream_text.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace korvel::internal {

namespace {

template <typename Real>
void AppendShortest(std::string& out, Real value) {
    if (std::isnan(value)) {
        out += "nan";
        return;
    }
    std::array<char, 32> text; // 17 digits, sign, point and exponent at the most
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), value);
    out.append(text.data(), end);
}

} // namespace

void AppendStreamText(std::string& out, double value) {
    if (std::isnan(value)) {
        out += "nan";
        return;
    }
    std::array<char, 32> text; // 6 digits, sign, point and exponent at the most
    const auto [end, error] =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 6);
    out.append(text.data(), end);
}

void AppendFixedText(std::string& out, double value, int decimals) {
    if (std::isnan(value)) {
        out += "nan";
        return;
    }
    std::array<char, 64> text; // room for what is met in daily use
    if (const auto [end, error] =
            std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
        error == std::errc{}) {
        out.append(text.data(), end);
        return;
    }
    std::string longText(std::numeric_limits<double>::max_exponent10 + 3 + static_cast<std::size_t>(decimals),
                         '\0');
    const auto [end, error] = std::to_chars(longText.data(), longText.data() + longText.size(), value,
                                            std::chars_format::fixed, decimals);
    out.append(longText.data(), end);
}

void AppendShortestText(std::string& out, double value) {
    AppendShortest(out, value);
}

void AppendShortestText(std::string& out, float value) {
    AppendShortest(out, value);
}

} // namespace korvel::internal
