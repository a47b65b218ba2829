#include "korvel/editors/cell_edit_text.h"

#include "korvel/editors/cell_text_reading.h"
#include "korvel/output/angle_output.h"
#include "korvel/output/stream_text.h"
#include "korvel/platform/error.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace korvel::internal {

namespace {

constexpr int Decimals = 6;

template <typename Real>
std::string Shortest(Real number) {
    std::string text;
    AppendShortestText(text, number);
    return text;
}

// The number with that many significant digits.
template <typename Real>
Real Rounded(Real number, int digits) {
    std::array<char, 32> text;
    const char* end = std::to_chars(text.data(), text.data() + text.size(), number,
                                    std::chars_format::scientific, digits - 1)
                          .ptr;
    Real rounded = number;
    std::from_chars(text.data(), end, rounded);
    return rounded;
}

// The text when it reads back; else with a point at its end, which makes of a run of digits one that does not
// stop at 32 bits; else nothing.
template <typename Predicate>
std::optional<std::string> ThatReadsBack(const std::string& text, Predicate readsBack) {
    if (readsBack(text))
        return text;
    const bool isWhole = text.find_first_of(".e") == std::string::npos;
    return isWhole && readsBack(text + ".") ? std::optional(text + ".") : std::nullopt;
}

// The text with the fewest digits that reads back as `readsBack` says; the nearest when none does.
template <typename Real, typename Predicate>
std::string ExactText(Real number, Predicate readsBack) {
    if (std::isnan(number))
        return "0/0";
    if (std::isinf(number))
        return number < 0 ? "-1/0" : "1/0";
    for (int digits = 1; digits <= std::numeric_limits<Real>::max_digits10; ++digits)
        if (const auto text = ThatReadsBack(Shortest(Rounded(number, digits)), readsBack))
            return *text;
    // An angle may lose its last place on the way into the user's unit and back.
    constexpr Real Infinity = std::numeric_limits<Real>::infinity();
    for (const Real near : {std::nextafter(number, Infinity), std::nextafter(number, -Infinity)})
        if (const auto text = ThatReadsBack(Shortest(near), readsBack))
            return *text;
    return Shortest(number);
}

template <typename Real>
bool IsSame(Real left, Real right) {
    using Bits = std::conditional_t<sizeof(Real) == sizeof(std::uint32_t), std::uint32_t, std::uint64_t>;
    return std::bit_cast<Bits>(left) == std::bit_cast<Bits>(right);
}

// What `read` makes of a text; nothing when it refuses.
template <typename Read>
auto Attempt(Read read) -> std::optional<decltype(read())> {
    try {
        return read();
    } catch (const Error&) {
        return std::nullopt;
    }
}

std::string WithDecimals(double number) {
    std::string text;
    AppendFixedText(text, number, Decimals);
    return text;
}

template <typename Real>
std::string FloatingText(const TypeRow& type, Real stored, GridOptions options) {
    const bool isAngle = type.meaning == ValueMeaning::Angle;
    const Real number = isAngle ? CAngleOutput::Instance().FromRadians(stored) : stored;
    if (!options.Has(EGridOption::ExactEditText))
        return WithDecimals(number);
    return ExactText(number, [&](const std::string& text) {
        CVariantValue back;
        const auto isRead = Attempt([&] { return ReadCellText(type.type, text, options, back); });
        if constexpr (std::is_same_v<Real, float>)
            return isRead && IsSame(back.Value.Float, stored);
        else
            return isRead && IsSame(back.Value.Double, stored);
    });
}

// A number as a field of the type shows it, which for an angle is in the user's unit.
template <typename Real>
std::string SteppedText(const TypeRow& type, Real number, GridOptions options) {
    if (!options.Has(EGridOption::ExactEditText))
        return WithDecimals(number);
    return ExactText(number, [&](const std::string& text) {
        const auto back = Attempt([&] { return ReadCellNumber(type, text, options); });
        return back && IsSame(static_cast<Real>(*back), number);
    });
}

std::string WholeText(double number, const TypeRow& type) {
    using Bounds = std::numeric_limits<std::int32_t>;
    const double highest = type.storage == ValueStorage::UInt ? double{0xFFFFFFFF} : Bounds::max();
    CVariantValue value;
    if (!StoreWhole(std::clamp<double>(number, Bounds::min(), highest), type, value))
        throw Error(""); // not-a-number
    return std::to_string(value.Value.Int);
}

} // namespace

std::string CellEditText(const CVariantValue& value, GridOptions options) {
    const TypeRow* row = FindTypeRow(value.Type);
    if (!row || !row->IsNumeric())
        return value.Text;
    switch (row->storage) {
    case ValueStorage::Float:
        return FloatingText(*row, value.Value.Float, options);
    case ValueStorage::Double:
        return FloatingText(*row, value.Value.Double, options);
    default:
        return std::to_string(value.Value.Int);
    }
}

std::optional<std::string> SteppedCellText(EDataTyps type, const std::string& text, double delta,
                                           GridOptions options) {
    const TypeRow* row = FindTypeRow(WithoutFormula(type));
    if (!row || !row->IsNumeric())
        return std::nullopt;
    double number = ReadCellNumber(*row, text, options) + delta;
    if (row->meaning == ValueMeaning::Range)
        number = std::clamp(number, 0.0, RangeEnd);
    switch (row->storage) {
    case ValueStorage::Float:
        return SteppedText(*row, static_cast<float>(number), options);
    case ValueStorage::Double:
        return SteppedText(*row, number, options);
    default:
        return WholeText(number, *row);
    }
}

} // namespace korvel::internal
