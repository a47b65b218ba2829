#include "korvel/parser/evaluate_expression.h"
#include "korvel/platform/error.h"

#include <cmath>
#include <gmock/gmock.h>
#include <random>

namespace korvel {
namespace {

std::string Repeat(std::string_view text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

TEST(EvaluateExpression, GivesTheValueOfACompleteExpression) {
    const std::tuple<const char*, std::string, double> cases[] = {
        {"signs of the first number and after operators", "+5*-3--2", -13},
        {"blanks, tabs and all line ends between tokens", " 1\t+\r\n2 \n* \r3 ", 7},
        {"blank between sign and number", "- 5", -5},
        {"point first", ".5", 0.5},
        {"point last", "5.", 5},
        {"exponent without a point", "1e3", 1000},
        {"signed exponents", "15E-1+1.5e+1", 16.5},
        {"exponent after a last point", "1.e2", 100},
        {"f is skipped like a blank", "2f+1.5f", 3.5},
        {"division by zero", "1/0", INFINITY},
        {"division by an integer -0, which has no sign", "1/-0", INFINITY},
        {"division by a real -0", "1/-0.0", -INFINITY},
        {"integer beyond 32 bits stops", "2147483648", 2147483647},
        {"integer below 32 bits stops", "-2147483649", -2147483648.0},
        {"the same digits with a point are kept", "4294967296.", 4294967296.0},
        {"beyond the range of a double", "-1e99999999999999999999", -INFINITY},
        {"too small for a double", "1e-999", 0},
        {"longest integer", std::string(2000, '9'), 2147483647},
        {"more blanks than a token has bytes", std::string(5000, ' ') + "7", 7},
        {"deepest brackets", Repeat("(", 1000) + "7" + Repeat(")", 1000), 7},
        {"many brackets side by side", "0" + Repeat("+(1)", 5000), 5000},
    };
    for (const auto& [name, text, value] : cases)
        EXPECT_EQ(EvaluateExpression(".", text), value) << name;
    EXPECT_TRUE(std::isnan(EvaluateExpression(".", "0/0")));
    EXPECT_TRUE(std::signbit(EvaluateExpression(".", "-0.0")));
}

void ExpectRefused(std::string_view separator, std::string_view text) {
    EXPECT_THAT([&] { EvaluateExpression(separator, text); }, testing::ThrowsMessage<Error>(""))
        << text.substr(0, 40);
}

TEST(EvaluateExpression, RefusesWhatIsNoCompleteExpressionWithAnEmptyText) {
    for (const char* text :
         {"",   " \t\r\n", "12abc", "1 2",   "1f2", "1F", "1.2.3", ".",    "1e",   "1e+", "e5",  ".e5",  "1+",
          "*2", "-(1)",    "--1",   "1+-+1", "()",  "(1", "1)",    "2(3)", "0x10", "inf", "nan", "1\xA0"})
        ExpectRefused(".", text);
    const std::pair<const char*, std::string> cases[] = {
        {"zero byte after a number", std::string("1\0", 2)},
        {"zero byte before a number", std::string("\0001", 2)},
        {"token too long by a byte", std::string(2001, '1')},
        {"brackets too deep by one", Repeat("(", 1001) + "7" + Repeat(")", 1001)},
        {"open brackets only", std::string(100000, '(')},
        {"endless digits", std::string(1000000, '7')},
    };
    for (const auto& [name, text] : cases) {
        SCOPED_TRACE(name);
        ExpectRefused(".", text);
    }
    for (int byte = 0; byte < 256; ++byte) // of single bytes only digits are expressions
        if (byte < '0' || byte > '9')
            ExpectRefused(".", std::string(1, static_cast<char>(byte)));
}

TEST(EvaluateExpression, ReadsEveryDecimalSeparatorAsAPoint) {
    EXPECT_EQ(EvaluateExpression(",", "1,5+1.5"), 3);
    EXPECT_EQ(EvaluateExpression("", "1.5"), 1.5);
    EXPECT_EQ(EvaluateExpression("::", "1::5+::5"), 2);
    EXPECT_EQ(EvaluateExpression("+", "1+5"), 1.5);
    EXPECT_EQ(EvaluateExpression(" ", "1 5+1"), 2.5);
    EXPECT_EQ(EvaluateExpression("1", "213"), 2.3);
    _numberfmtA format{};
    format.DecimalSep = ",";
    format.ThousandSep = ".";
    EXPECT_EQ(EvaluateExpression(format, "1,5"), 1.5);
    ExpectRefused(",", "1.234,5");
    ExpectRefused("::", "1:5");
}

// A random expression, with the value that its operators give from left to right.
class RandomExpression {
public:
    explicit RandomExpression(unsigned seed) : m_random(seed) { value = Sum(3); }

    std::string text;
    double value;

private:
    unsigned Below(unsigned bound) { return static_cast<unsigned>(m_random() % bound); }

    double Sum(int depth) {
        double sum = Product(depth);
        for (unsigned i = Below(3); i > 0; --i) {
            const bool adds = Below(2) == 0;
            text += adds ? " +" : "- ";
            sum += adds ? Product(depth) : -Product(depth);
        }
        return sum;
    }

    double Product(int depth) {
        double product = Operand(depth);
        for (unsigned i = Below(3); i > 0; --i) {
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
        const bool isNegative = Below(4) == 0;
        const unsigned quarters = Below(100000);
        const char* const fractions[] = {".0", ".25", "50e-2", ".75"};
        text += (isNegative ? "-" : "") + std::to_string(quarters / 4) + fractions[quarters % 4];
        return (isNegative ? -0.25 : 0.25) * quarters;
    }

    std::mt19937 m_random;
};

TEST(EvaluateExpression, AgreesWithTheArithmeticOfRandomExpressions) {
    for (unsigned seed = 0; seed < 5000; ++seed) {
        const RandomExpression expression(seed);
        const double value = EvaluateExpression(".", expression.text);
        EXPECT_TRUE(value == expression.value || (std::isnan(value) && std::isnan(expression.value)))
            << expression.text;
    }
}

} // namespace
} // namespace korvel
