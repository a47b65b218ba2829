#include "korvel/platform/number_text.h"
#include "support/table.h"

#include <bit>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <random>

namespace korvel::platform {
namespace {

using namespace internal;

NumberTextFormat German(std::uint32_t digits, std::uint32_t grouping = 3, std::uint32_t negativeOrder = 1,
                        std::uint32_t leadingZero = 1) {
    return {digits, leadingZero, grouping, ",", ".", negativeOrder};
}

std::optional<std::string> Format(std::string_view number, const NumberTextFormat& format) {
    std::string text = "before ";
    const bool made = AppendNumberText(text, number, format);
    EXPECT_TRUE(text.starts_with("before "));
    EXPECT_TRUE(made || text.size() == 7) << "a refusal appends nothing";
    return made ? std::optional(text.substr(7)) : std::nullopt;
}

TEST(NumberText, FollowsTheFormat) {
    const Table<const char*, NumberTextFormat, std::optional<std::string>> cases = {
        {"separators", "1234567.891", German(2), "1.234.567,89"},
        {"half goes away from zero", "2.5", German(0), "3"},
        {"rounds the text, not the double", "1.005000000000000", German(2), "1,01"},
        {"just below the half", "9.994999999999999", German(2), "9,99"},
        {"a carry regroups", "999.5", German(0), "1.000"},
        {"a carry through the fraction", "9.999", German(2), "10,00"},
        {"three, then twos", "123456789", German(0, 32), "12.34.56.789"},
        {"three, then the rest", "123456789", German(0, 30), "123456.789"},
        {"three, two, then the rest", "123456789", German(0, 320), "1234.56.789"},
        {"groups of two", "123456789", German(0, 2), "1.23.45.67.89"},
        {"no groups", "123456789", German(0, 0), "123456789"},
        {"a group that is just full", "123", German(0, 3), "123"},
        {"negative order 0", "-1.1", German(1, 3, 0), "(1,1)"},
        {"negative order 2", "-1.1", German(1, 3, 2), "- 1,1"},
        {"negative order 3", "-1.1", German(1, 3, 3), "1,1-"},
        {"negative order 4", "-1.1", German(1, 3, 4), "1,1 -"},
        {"negative order 5", "-1.1", German(1, 3, 5), std::nullopt},
        {"negative order 5 of a positive number", "1.1", German(1, 3, 5), "1,1"},
        {"rounded to zero has no brackets", "-0.004", German(2, 3, 0), "0,00"},
        {"rounded to zero has no minus after it", "-0.4", German(0, 3, 4), "0"},
        {"the smallest that is not zero keeps its sign", "-0.005", German(2), "-0,01"},
        {"no leading zero and no digits", "0.4", German(0, 3, 1, 0), ""},
        {"no leading zero, but a carry", "0.5", German(0, 3, 1, 0), "1"},
        {"nothing after the point", "-5.", German(3), "-5,000"},
        {"zeros in front", "00012.5", German(1), "12,5"},
        {"separators of no and of many bytes", "1234.5", {1, 1, 3, "<,>", "", 1}, "1234<,>5"},
        {"as many digits as there are", "1", German(std::numeric_limits<std::uint32_t>::max()), std::nullopt},
    };
    for (const auto& [border, number, format, expected] : cases)
        EXPECT_EQ(Format(number, format), expected) << border;
    for (const char* refused :
         {"+1", "1e5", " 1", "1 ", "1-", "--1", "1.2.3", "1,5", "nan", "-inf", "", ".", "-"})
        EXPECT_EQ(Format(refused, German(2)), std::nullopt) << refused;
}

TEST(NumberText, EndsAtTheLimit) {
    const std::string longest(LongestNumberText, '9');
    EXPECT_EQ(Format(longest, German(0, 0)), longest);
    EXPECT_EQ(Format("-" + longest, German(0, 0)), std::nullopt) << "the sign is one too many";
    EXPECT_EQ(Format(longest + ".5", German(0, 0)), std::nullopt) << "the carry is one too many";
    EXPECT_EQ(Format(longest, German(0)), std::nullopt) << "the groups are too many";
    EXPECT_EQ(Format("1", German(LongestNumberText - 2)), "1," + std::string(LongestNumberText - 2, '0'));
    EXPECT_EQ(Format("1", German(LongestNumberText - 1)), std::nullopt);
}

TEST(NumberText, WritesIntegers) {
    std::string text;
    EXPECT_TRUE(AppendNumber(text, std::numeric_limits<std::int64_t>::min(), German(0)));
    EXPECT_TRUE(AppendNumber(text += '|', std::int64_t{0}, German(2)));
    EXPECT_EQ(text, "-9.223.372.036.854.775.808|0,00");
}

// Directly as through a rendered text, byte by byte.
void ExpectTheSame(double value) {
    for (const RenderedDigits decimals : {RenderedDigits::Float, RenderedDigits::Double}) {
        char rendered[400];
        std::snprintf(rendered, sizeof rendered, "%.*f", static_cast<int>(decimals), value);
        for (const std::uint32_t digits : {0u, 2u, 7u, 8u, 14u, 15u, 20u}) {
            const NumberTextFormat format = German(digits, 32, digits % 5, digits % 2);
            std::string text;
            const bool made = AppendNumber(text, value, decimals, format);
            ASSERT_EQ(made ? std::optional(text) : std::nullopt, Format(rendered, format))
                << std::hexfloat << value << " with " << digits << " digits";
        }
    }
}

TEST(DirectNumberText, AgreesAtTheBordersAndForRandomNumbers) {
    // 2^-9 and 3 * 2^-9 have an exact half as their ninth decimal, after an even and an odd digit; so have
    // 2^-16 and 3 * 2^-16 as their sixteenth.
    const double borders[] = {0,        0x1p-1022, INFINITY, NAN,     0.5,     2.5,     1.005,
                              9.995,    0x1p-9,    0x3p-9,   0x1p-16, 0x3p-16, 0x1p-51, 0x1p-52,
                              0x1p-104, 0x1p-105,  0x1p53,   0x1p64,  1,       1e6};
    for (const double value : borders) {
        ExpectTheSame(value);
        ExpectTheSame(-value);
        ExpectTheSame(std::nextafter(value, 0.0));
        ExpectTheSame(std::nextafter(value, INFINITY));
    }
    std::mt19937_64 random(20260314);
    for (int i = 0; i < 5000; ++i) {
        const auto bits = random();
        ExpectTheSame(std::bit_cast<double>(bits));
        ExpectTheSame(std::ldexp(static_cast<double>(bits >> 11), static_cast<int>(bits % 120) - 110));
        const double shortDecimal = static_cast<double>(bits % 2000001) / 1000; // what drawings hold
        ExpectTheSame(shortDecimal - 1000);
        ExpectTheSame(static_cast<float>(shortDecimal));
    }
}

} // namespace
} // namespace korvel::platform
