#include "platform/number_text.h"

#include <bit>
#include <cmath>
#include <cstdio>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <random>

namespace korvel::platform {
namespace {

NumberTextFormat German(std::uint32_t digits, std::uint32_t grouping = 3, std::uint32_t negativeOrder = 1,
                        std::uint32_t leadingZero = 1) {
    return {digits, leadingZero, grouping, ",", ".", negativeOrder};
}

std::optional<std::string> Format(std::string_view number, const NumberTextFormat& format) {
    std::string text = "before ";
    const bool made = AppendNumberText(text, number, format);
    EXPECT_TRUE(text.starts_with("before ") && (made || text.size() == 7)) << "a refusal must append nothing";
    return made ? std::optional(text.substr(7)) : std::nullopt;
}

struct TextCase {
    const char* border;
    const char* number;
    NumberTextFormat format;
    std::optional<std::string> expected;
};

TEST(NumberText, FollowsTheFormat) {
    const TextCase cases[] = {
        {"separators", "1234567.891", German(2), "1.234.567,89"},
        {"half goes away from zero", "2.5", German(0), "3"},
        {"negative half goes away from zero", "-2.5", German(0), "-3"},
        {"rounds the text, not the double", "1.005000000000000", German(2), "1,01"},
        {"just below the half", "9.994999999999999", German(2), "9,99"},
        {"a carry regroups", "999.5", German(0), "1.000"},
        {"a carry through the fraction", "9.999", German(2), "10,00"},
        {"a carry into nothing", ".95", German(1), "1,0"},
        {"padded with zeros", "1.5", German(4), "1,5000"},
        {"groups of three", "123456789", German(0, 3), "123.456.789"},
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
        {"rounded to zero has no minus behind", "-0.4", German(0, 3, 4), "0"},
        {"the smallest that is not zero keeps its sign", "-0.005", German(2), "-0,01"},
        {"no leading zero", "0.5", German(1, 3, 1, 0), ",5"},
        {"no leading zero and no digits", "0.4", German(0, 3, 1, 0), ""},
        {"no leading zero, but a carry", "0.5", German(0, 3, 1, 0), "1"},
        {"nothing before the point", "-.5", German(1), "-0,5"},
        {"nothing behind the point", "5.", German(1), "5,0"},
        {"zeros in front", "00012.5", German(1), "12,5"},
        {"empty separators", "1234.5", {1, 1, 3, "", "", 1}, "12345"},
        {"long separators", "1234.5", {1, 1, 3, "<,>", "<.>", 1}, "1<.>234<,>5"},
        {"plus", "+1", German(2), std::nullopt},
        {"exponent", "1e5", German(2), std::nullopt},
        {"blank in front", " 1", German(2), std::nullopt},
        {"blank behind", "1 ", German(2), std::nullopt},
        {"sign behind", "1-", German(2), std::nullopt},
        {"two signs", "--1", German(2), std::nullopt},
        {"two points", "1.2.3", German(2), std::nullopt},
        {"comma", "1,5", German(2), std::nullopt},
        {"not a number", "nan", German(2), std::nullopt},
        {"infinity", "-inf", German(2), std::nullopt},
        {"empty", "", German(2), std::nullopt},
        {"point alone", ".", German(2), std::nullopt},
        {"sign alone", "-", German(2), std::nullopt},
        {"as many digits as there are", "1", German(std::numeric_limits<std::uint32_t>::max()), std::nullopt},
    };
    for (const TextCase& row : cases) {
        EXPECT_EQ(Format(row.number, row.format), row.expected) << row.border;
    }
}

TEST(NumberText, EndsAtTheLimit) {
    const std::string longest(longestNumberText, '9');
    EXPECT_EQ(Format(longest, German(0, 0)), longest);
    EXPECT_EQ(Format("-" + longest, German(0, 0)), std::nullopt) << "the sign is one too many";
    EXPECT_EQ(Format(longest + ".5", German(0, 0)), std::nullopt) << "the carry is one too many";
    EXPECT_EQ(Format(longest, German(0)), std::nullopt) << "the groups are too many";
    EXPECT_EQ(Format("1", German(longestNumberText - 2)), "1," + std::string(longestNumberText - 2, '0'));
    EXPECT_EQ(Format("1", German(longestNumberText - 1)), std::nullopt);
}

TEST(NumberText, WritesIntegers) {
    std::string text;
    EXPECT_TRUE(AppendNumber(text, std::numeric_limits<std::int64_t>::min(), German(0)));
    EXPECT_EQ(text, "-9.223.372.036.854.775.808");
    text.clear();
    EXPECT_TRUE(AppendNumber(text, std::int64_t{0}, German(2)));
    EXPECT_EQ(text, "0,00");
}

/// The way that the direct one must agree with, byte by byte.
std::optional<std::string> ThroughPrintf(double value, RenderedDigits rendered,
                                         const NumberTextFormat& format) {
    char text[400];
    std::snprintf(text, sizeof text, "%.*f", static_cast<int>(rendered), value);
    return Format(text, format);
}

std::optional<std::string> Directly(double value, RenderedDigits rendered, const NumberTextFormat& format) {
    std::string text;
    return AppendNumber(text, value, rendered, format) ? std::optional(text) : std::nullopt;
}

class DirectNumberText : public testing::TestWithParam<RenderedDigits> {
protected:
    void ExpectTheSame(double value) const {
        for (const std::uint32_t digits : {0u, 2u, 7u, 8u, 14u, 15u, 20u}) {
            const NumberTextFormat format = German(digits, 32, digits % 5, digits % 2);
            ASSERT_EQ(Directly(value, GetParam(), format), ThroughPrintf(value, GetParam(), format))
                << std::hexfloat << value << " with " << digits << " digits";
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Both, DirectNumberText,
                         testing::Values(RenderedDigits::Float, RenderedDigits::Double), [](const auto& row) {
                             return row.param == RenderedDigits::Float ? "Float" : "Double";
                         });

TEST_P(DirectNumberText, AgreesAtTheBorders) {
    using Limits = std::numeric_limits<double>;
    const double borders[] = {0.0,
                              Limits::denorm_min(),
                              Limits::min(),
                              Limits::max(),
                              Limits::infinity(),
                              Limits::quiet_NaN(),
                              0.5,
                              2.5,
                              1.005,
                              9.995,
                              0.99999999999999989,
                              999999.99999999988,
                              0x1p-9,  // its ninth decimal is an exact half
                              0x3p-9,  // so is this one's, with an odd digit in front
                              0x1p-16, // the same for the sixteenth
                              0x3p-16,
                              0x1p-51,
                              0x1p-52,
                              0x1p-104,
                              0x1p-105,
                              0x1.fffffffffffffp52,
                              0x1p53,
                              0x1.fffffffffffffp63,
                              0x1p64};
    for (const double value : borders) {
        ExpectTheSame(value);
        ExpectTheSame(-value);
        ExpectTheSame(std::nextafter(value, 0.0));
        ExpectTheSame(std::nextafter(value, Limits::infinity()));
    }
}

TEST_P(DirectNumberText, AgreesForRandomNumbers) {
    std::mt19937_64 random(20260314);
    for (int i = 0; i < 20000; ++i) {
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
