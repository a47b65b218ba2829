#include "parser/numeric_parser.h"
#include "platform/error.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

namespace korvel {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();

std::string Repeat(std::string_view text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

struct ValueCase {
    const char* name;
    std::string text;
    double value;
};

TEST(EvaluateExpression, GivesTheValueOfACompleteExpression) {
    const ValueCase cases[] = {
        {"product before sum", "1+2*3", 7},
        {"brackets first", "(1+2)*3", 9},
        {"quotients from the left", "8/4/2", 1},
        {"differences from the left", "8-4-2", 2},
        {"sign of the first number", "+5", 5},
        {"sign behind an operator", "2*-3", -6},
        {"sign of a subtracted number", "1--2", 3},
        {"blanks, tabs and all line ends between tokens", " 1\t+\r\n2 \n* \r3 ", 7},
        {"blank between sign and number", "- 5", -5},
        {"point first", ".5", 0.5},
        {"point last", "5.", 5},
        {"exponent without a point", "1e3", 1000},
        {"signed exponents", "15E-1+1.5e+1", 16.5},
        {"exponent behind a last point", "1.e2", 100},
        {"f is skipped like a blank", "2f+1.5f", 3.5},
        {"division by zero", "1/0", Infinity},
        {"division by an integer -0, which has no sign", "1/-0", Infinity},
        {"division by a real -0", "1/-0.0", -Infinity},
        {"largest integer", "2147483647", 2147483647},
        {"integer beyond 32 bits stops", "2147483648", 2147483647},
        {"smallest integer", "-2147483648", -2147483648.0},
        {"integer below 32 bits stops", "-2147483649", -2147483648.0},
        {"the same digits with a point are kept", "4294967296.", 4294967296.0},
        {"beyond the range of a double", "1e999", Infinity},
        {"beyond it on the other side", "-1e999", -Infinity},
        {"digits beyond any exponent", "1e99999999999999999999", Infinity},
        {"too small for a double", "1e-999", 0},
        {"smallest double", "4.9e-324", std::numeric_limits<double>::denorm_min()},
        {"longest token", std::string(1999, '9') + ".", Infinity},
        {"longest integer", std::string(2000, '9'), 2147483647},
        {"more blanks than a token has bytes", std::string(5000, ' ') + "7", 7},
        {"deepest brackets", Repeat("(", 1000) + "7" + Repeat(")", 1000), 7},
        {"many brackets side by side", "0" + Repeat("+(1)", 5000), 5000},
    };
    for (const ValueCase& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(EvaluateExpression(".", row.text), row.value);
    }
    EXPECT_TRUE(std::isnan(EvaluateExpression(".", "0/0")));
    EXPECT_TRUE(std::signbit(EvaluateExpression(".", "-0.0")));
}

void ExpectRefused(std::string_view separator, std::string_view text) {
    try {
        EvaluateExpression(separator, text);
        ADD_FAILURE() << "accepted: " << text.substr(0, 40);
    } catch (const Error& error) {
        EXPECT_STREQ(error.what(), "");
    }
}

TEST(EvaluateExpression, RefusesWhatIsNoCompleteExpressionWithAnEmptyText) {
    const std::pair<const char*, std::string> cases[] = {
        {"empty", ""},
        {"blanks only", " \t\r\n"},
        {"letters behind a number", "12abc"},
        {"two numbers", "1 2"},
        {"two numbers parted by f", "1f2"},
        {"two points", "1.2.3"},
        {"point alone", "."},
        {"exponent without digits", "1e"},
        {"exponent with a sign only", "1e+"},
        {"exponent alone", "e5"},
        {"operand missing at the end", "1+"},
        {"operand missing at the beginning", "*2"},
        {"sign of a bracket", "-(1)"},
        {"two signs", "--1"},
        {"sign of a sign", "1+-+1"},
        {"empty brackets", "()"},
        {"bracket not closed", "(1"},
        {"bracket not opened", "1)"},
        {"number before a bracket", "2(3)"},
        {"hexadecimal", "0x10"},
        {"names of the C library", "inf"},
        {"not-a-number", "nan"},
        {"zero byte behind a number", std::string("1\0", 2)},
        {"zero byte before a number", std::string("\0001", 2)},
        {"no-break space", "1\xA0"},
        {"token too long by a byte", std::string(2001, '1')},
        {"brackets too deep by one", Repeat("(", 1001) + "7" + Repeat(")", 1001)},
        {"open brackets only", std::string(100000, '(')},
        {"endless digits", std::string(1000000, '7')},
    };
    for (const auto& [name, text] : cases) {
        SCOPED_TRACE(name);
        ExpectRefused(".", text);
    }
}

TEST(EvaluateExpression, OfASingleByteOnlyDigitsAreExpressions) {
    for (int byte = 0; byte < 256; ++byte) {
        SCOPED_TRACE(byte);
        const std::string text(1, static_cast<char>(byte));
        if (byte >= '0' && byte <= '9') {
            EXPECT_EQ(EvaluateExpression(".", text), byte - '0');
        } else {
            ExpectRefused(".", text);
        }
    }
}

TEST(EvaluateExpression, ReadsEveryDecimalSeparatorAsAPoint) {
    EXPECT_EQ(EvaluateExpression(",", "1,5+1"), 2.5);
    EXPECT_EQ(EvaluateExpression(",", "1.5+1,5"), 3);
    EXPECT_EQ(EvaluateExpression("", "1.5"), 1.5);
    EXPECT_EQ(EvaluateExpression("::", "1::5+::5"), 2);
    EXPECT_EQ(EvaluateExpression(" ", "1 5"), 1.5);
    EXPECT_EQ(EvaluateExpression("+", "1+5"), 1.5);
    ExpectRefused(",", "1.234,5");
    ExpectRefused("::", "1:5");
    ExpectRefused("", "1,5");
}

/// A random expression, with the value that its operators give from left to right.
class RandomExpression {
public:
    explicit RandomExpression(unsigned seed) : m_random(seed) { value = Sum(3); }

    std::string text;
    double value;

private:
    int Below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }

    double Sum(int depth) {
        double sum = Product(depth);
        for (int i = Below(3); i > 0; --i) {
            const bool adds = Below(2) == 0;
            text += adds ? " +" : "- ";
            const double operand = Product(depth);
            sum = adds ? sum + operand : sum - operand;
        }
        return sum;
    }

    double Product(int depth) {
        double product = Operand(depth);
        for (int i = Below(3); i > 0; --i) {
            const bool multiplies = Below(2) == 0;
            text += multiplies ? "*" : "/";
            const double operand = Operand(depth);
            product = multiplies ? product * operand : product / operand;
        }
        return product;
    }

    double Operand(int depth) {
        if (depth > 0 && Below(3) == 0) {
            text += "(";
            const double inner = Sum(depth - 1);
            text += ")";
            return inner;
        }
        const double sign = Below(4) == 0 ? -1 : 1;
        const int quarters = Below(100000);
        const std::string digits = std::to_string(quarters / 4);
        const char* const fractions[] = {".0", ".25", "50e-2", ".75"};
        text += (sign < 0 ? "-" : "") + digits + fractions[quarters % 4];
        return sign * quarters / 4;
    }

    std::mt19937 m_random;
};

TEST(EvaluateExpression, AgreesWithTheArithmeticOfRandomExpressions) {
    for (unsigned seed = 0; seed < 5000; ++seed) {
        const RandomExpression expression(seed);
        const double value = EvaluateExpression(".", expression.text);
        if (std::isnan(expression.value)) {
            EXPECT_TRUE(std::isnan(value)) << expression.text;
        } else {
            EXPECT_EQ(value, expression.value) << expression.text;
        }
    }
}

} // namespace
} // namespace korvel
