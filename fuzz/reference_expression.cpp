#include "reference_expression.h"

#include <cstdlib>

namespace korvel::fuzz {

namespace {

constexpr std::size_t LongestNumber = 2000;
constexpr int DeepestBracket = 1000;

class Reader {
public:
    explicit Reader(std::string text) : m_text(std::move(text)) {}

    std::optional<double> Whole() {
        const double value = Sum();
        return m_failed || Peek() != End ? std::nullopt : std::optional(value);
    }

private:
    static constexpr int End = -1;

    int Peek() {
        while (m_at < m_text.size() && std::string_view(" \t\r\nf").find(m_text[m_at]) != std::string::npos)
            ++m_at;
        return m_at < m_text.size() ? static_cast<unsigned char>(m_text[m_at]) : End;
    }

    double Fail() {
        m_failed = true;
        return 0;
    }

    double Sum() {
        double value = Product();
        while (!m_failed && (Peek() == '+' || Peek() == '-')) {
            const bool adds = m_text[m_at++] == '+';
            const double operand = Product();
            value = adds ? value + operand : value - operand;
        }
        return value;
    }

    double Product() {
        double value = Operand();
        while (!m_failed && (Peek() == '*' || Peek() == '/')) {
            const bool multiplies = m_text[m_at++] == '*';
            const double operand = Operand();
            value = multiplies ? value * operand : value / operand;
        }
        return value;
    }

    double Operand() {
        if (Peek() == '(')
            return Bracket();
        const bool negative = Peek() == '-';
        if (negative || Peek() == '+')
            ++m_at;
        Peek();
        return Number(negative);
    }

    double Bracket() {
        ++m_at;
        if (++m_depth > DeepestBracket)
            return Fail();
        const double value = Sum();
        --m_depth;
        if (m_failed || Peek() != ')')
            return Fail();
        ++m_at;
        return value;
    }

    std::size_t Digits() {
        const std::size_t begin = m_at;
        while (m_at < m_text.size() && m_text[m_at] >= '0' && m_text[m_at] <= '9')
            ++m_at;
        return m_at - begin;
    }

    bool Take(std::string_view oneOf) {
        const bool taken = m_at < m_text.size() && oneOf.find(m_text[m_at]) != std::string_view::npos;
        m_at += taken;
        return taken;
    }

    double Number(bool negative) {
        const std::size_t begin = m_at;
        std::size_t digits = Digits();
        const bool hasPoint = Take(".");
        if (hasPoint)
            digits += Digits();
        if (digits == 0)
            return Fail();
        const bool hasExponent = Take("eE");
        if (hasExponent) {
            Take("+-");
            if (Digits() == 0)
                return Fail();
        }
        if (m_at - begin > LongestNumber)
            return Fail();
        const std::string number = (negative ? "-" : "") + m_text.substr(begin, m_at - begin);
        return hasPoint || hasExponent ? std::strtod(number.c_str(), nullptr) : Integer(number);
    }

    static double Integer(const std::string& number) {
        const long long value = std::strtoll(number.c_str(), nullptr, 10);
        return value > 2147483647 ? 2147483647.0 : value < -2147483648LL ? -2147483648.0 : double(value);
    }

    std::string m_text;
    std::size_t m_at = 0;
    int m_depth = 0;
    bool m_failed = false;
};

} // namespace

std::optional<double> ReferenceValue(std::string_view separator, std::string_view text) {
    std::string point;
    for (std::size_t i = 0; i < text.size();) {
        const bool separates = !separator.empty() && text.substr(i).starts_with(separator);
        point += separates ? '.' : text[i];
        i += separates ? separator.size() : 1;
    }
    return Reader(point).Whole();
}

} // namespace korvel::fuzz
