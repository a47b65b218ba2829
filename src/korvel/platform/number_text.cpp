#include "korvel/platform/number_text.h"

#include "korvel/platform/fixed_point.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>

namespace korvel::internal {
namespace {

// The digits of a number that is rounded already. The fraction may be shorter than the format asks for.
struct DecimalDigits {
    std::string_view integer; // without leading zeros; empty for 0
    std::string_view fraction;
    bool negative = false; // never for zero
};

struct Sign {
    std::string_view before;
    std::string_view after;
};

constexpr std::array<Sign, 5> NegativeForms{{{"(", ")"}, {"-", ""}, {"- ", ""}, {"", "-"}, {"", " -"}}};

// A text that grows from its end, since groups are counted from there, up to the longest that is allowed.
class BackwardText {
public:
    void Put(std::string_view piece) {
        if (char* place = Take(piece.size())) {
            // Pieces have a few bytes, for which a loop is faster than a call of memcpy.
            for (const char byte : piece)
                *place++ = byte;
        }
    }
    void PutZeros(std::size_t count) {
        if (char* place = Take(count))
            std::fill_n(place, count, '0');
    }
    bool Fits() const { return m_fits; }
    std::string_view Text() const { return {m_buffer.data() + m_begin, m_buffer.size() - m_begin}; }

private:
    char* Take(std::size_t count) {
        m_fits = m_fits && count <= m_begin;
        if (!m_fits)
            return nullptr;
        m_begin -= count;
        return m_buffer.data() + m_begin;
    }

    std::array<char, LongestNumberText> m_buffer;
    std::size_t m_begin = LongestNumberText;
    bool m_fits = true;
};

// Walks through the sizes of a grouping code; 0 says that the rest is one group.
class GroupSizes {
public:
    explicit GroupSizes(std::uint32_t code) {
        m_end = std::to_chars(m_sizes.data(), m_sizes.data() + m_sizes.size(), code).ptr;
    }
    std::size_t Next() {
        const auto size = static_cast<std::size_t>(*m_next - '0');
        if (size != 0 && m_next + 1 < m_end)
            ++m_next;
        return size;
    }

private:
    std::array<char, 10> m_sizes; // as many as a 32-bit number has digits
    const char* m_next = m_sizes.data();
    const char* m_end;
};

void PutGrouped(BackwardText& text, std::string_view integer, const NumberTextFormat& format) {
    GroupSizes sizes(format.grouping);
    for (std::size_t size = sizes.Next(); size != 0 && size < integer.size(); size = sizes.Next()) {
        text.Put(integer.substr(integer.size() - size));
        text.Put(format.thousandsSeparator);
        integer.remove_suffix(size);
    }
    text.Put(integer);
}

bool AppendDigits(std::string& out, const DecimalDigits& number, const NumberTextFormat& format) {
    if (number.negative && format.negativeOrder >= NegativeForms.size())
        return false;
    const Sign sign = number.negative ? NegativeForms[format.negativeOrder] : Sign{};
    BackwardText text;
    text.Put(sign.after);
    if (format.digits > 0) {
        text.PutZeros(format.digits - number.fraction.size());
        text.Put(number.fraction);
        text.Put(format.decimalSeparator);
    }
    if (number.integer.empty() && format.leadingZero != 0)
        text.Put("0");
    PutGrouped(text, number.integer, format);
    text.Put(sign.before);
    if (text.Fits())
        out.append(text.Text());
    return text.Fits();
}

std::string_view WithoutLeadingZeros(std::string_view digits) {
    digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
    return digits;
}

bool IsDigits(std::string_view text) {
    return text.find_first_not_of("0123456789") == std::string_view::npos;
}

// Adds one to the last of these digits, of which the first is 0.
void Increase(std::string& digits) {
    std::size_t last = digits.size() - 1;
    for (; digits[last] == '9'; --last)
        digits[last] = '0';
    ++digits[last];
}

bool AppendRendered(std::string& out, double value, int decimals, const NumberTextFormat& format) {
    std::array<char, 330> text; // the largest double has 309 digits before the point
    const int length = std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    return AppendNumberText(out, {text.data(), static_cast<std::size_t>(length)}, format);
}

using IntegerDigits = std::array<char, 20>; // the largest 64-bit number has 20 digits

std::string_view Render(std::uint64_t integer, IntegerDigits& digits) {
    if (integer == 0)
        return {};
    const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), integer).ptr;
    return {digits.data(), static_cast<std::size_t>(end - digits.data())};
}

using FractionDigits = std::array<char, FixedPoint::MostDecimals>;

std::string_view Render(std::uint64_t fraction, int decimals, FractionDigits& digits) {
    for (int place = decimals; place > 0; --place) {
        digits[static_cast<std::size_t>(place - 1)] = static_cast<char>('0' + fraction % 10);
        fraction /= 10;
    }
    return {digits.data(), static_cast<std::size_t>(decimals)};
}

} // namespace

bool AppendNumberText(std::string& out, std::string_view number, const NumberTextFormat& format) {
    const bool negative = number.starts_with('-');
    number.remove_prefix(negative ? 1 : 0);
    const std::size_t point = std::min(number.find('.'), number.size());
    std::string_view integer = number.substr(0, point);
    std::string_view fraction = number.substr(std::min(point + 1, number.size()));
    if (!IsDigits(integer) || !IsDigits(fraction) || integer.size() + fraction.size() == 0)
        return false;
    integer = WithoutLeadingZeros(integer);
    if (integer.size() + format.digits > LongestNumberText)
        return false;
    std::string rounded;
    if (fraction.size() > format.digits) {
        const bool up = fraction[format.digits] >= '5';
        fraction = fraction.substr(0, format.digits);
        if (up) {
            rounded.append("0").append(integer).append(fraction);
            Increase(rounded);
            integer = WithoutLeadingZeros(std::string_view(rounded).substr(0, integer.size() + 1));
            fraction = std::string_view(rounded).substr(rounded.size() - fraction.size());
        }
    }
    const bool zero = integer.empty() && WithoutLeadingZeros(fraction).empty();
    return AppendDigits(out, {integer, fraction, negative && !zero}, format);
}

bool AppendNumber(std::string& out, double value, RenderedDigits rendered, const NumberTextFormat& format) {
    const int decimals = static_cast<int>(rendered);
    std::optional<FixedPoint> number = FixedPoint::Of(value, decimals);
    if (!number)
        return AppendRendered(out, value, decimals, format);
    const int kept =
        static_cast<int>(std::min<std::uint32_t>(format.digits, static_cast<std::uint32_t>(decimals)));
    number->RoundTo(kept);
    IntegerDigits integer;
    FractionDigits fraction;
    return AppendDigits(out,
                        {Render(number->integer, integer), Render(number->fraction, kept, fraction),
                         number->negative && !number->IsZero()},
                        format);
}

bool AppendNumber(std::string& out, std::int64_t value, const NumberTextFormat& format) {
    const auto bits = static_cast<std::uint64_t>(value);
    IntegerDigits digits;
    return AppendDigits(out, {Render(value < 0 ? 0 - bits : bits, digits), {}, value < 0}, format);
}

} // namespace korvel::internal
