#include "korvel/platform/fixed_point.h"

#include <array>
#include <bit>

namespace korvel::internal {
namespace {

__extension__ using Wide = unsigned __int128;

constexpr auto PowersOfTen = [] {
    std::array<std::uint64_t, FixedPoint::MostDecimals + 1> powers{1};
    for (std::size_t i = 1; i < powers.size(); ++i)
        powers[i] = powers[i - 1] * 10;
    return powers;
}();

std::uint64_t PowerOfTen(int exponent) {
    return PowersOfTen[static_cast<std::size_t>(exponent)];
}

// The layout of a double: IEEE 754, binary64.
constexpr int MantissaBits = 52;
constexpr int ExponentMask = 0x7FF;
constexpr int ExponentOfOne = 1023;

// numerator / 2^shift, exact halves to even.
std::uint64_t DivideByPowerOfTwo(Wide numerator, int shift) {
    const auto quotient = static_cast<std::uint64_t>(numerator >> shift);
    const Wide remainder = numerator - (static_cast<Wide>(quotient) << shift);
    const Wide half = static_cast<Wide>(1) << (shift - 1);
    return quotient + (remainder > half || (remainder == half && quotient % 2 == 1) ? 1 : 0);
}

} // namespace

std::optional<FixedPoint> FixedPoint::Of(double value, int decimals) {
    const auto bits = std::bit_cast<std::uint64_t>(value);
    const int exponent = static_cast<int>(bits >> MantissaBits) & ExponentMask;
    if (exponent >= ExponentOfOne + 64)
        return std::nullopt;
    constexpr std::uint64_t HiddenBit = std::uint64_t{1} << MantissaBits;
    const std::uint64_t mantissa = (bits & (HiddenBit - 1)) | (exponent == 0 ? 0 : HiddenBit);
    FixedPoint result;
    result.decimals = decimals;
    result.negative = (bits >> 63) != 0;
    const int fractionBits = ExponentOfOne + MantissaBits - (exponent == 0 ? 1 : exponent);
    if (fractionBits <= 0) {
        result.integer = mantissa << -fractionBits;
        return result;
    }
    // The mantissa is below 2^53 and 10^15 below 2^50: a product shifted by more than 104 is less than a
    // half.
    if (fractionBits > 104)
        return result;
    result.integer = fractionBits < 64 ? mantissa >> fractionBits : 0;
    const std::uint64_t rest = mantissa - (fractionBits < 64 ? result.integer << fractionBits : 0);
    result.fraction = DivideByPowerOfTwo(static_cast<Wide>(rest) * PowerOfTen(decimals), fractionBits);
    if (result.fraction == PowerOfTen(decimals)) {
        result.fraction = 0;
        ++result.integer;
    }
    return result;
}

void FixedPoint::RoundTo(int fewerDecimals) {
    const std::uint64_t unit = PowerOfTen(decimals - fewerDecimals);
    const std::uint64_t rest = fraction % unit;
    fraction = fraction / unit + (2 * rest >= unit ? 1 : 0);
    decimals = fewerDecimals;
    if (fraction == PowerOfTen(decimals)) {
        fraction = 0;
        ++integer;
    }
}

} // namespace korvel::internal
