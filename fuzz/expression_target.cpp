// First byte: the decimal separator. Rest: the text of a numeric cell.

#include "fuzz_target.h"
#include "korvel/parser/evaluate_expression.h"
#include "korvel/platform/error.h"
#include "reference_expression.h"

#include <cmath>

namespace {

using namespace korvel;

constexpr std::string_view Separators[] = {".", ",", "",  " ", "'", "::",  "...",
                                           "+", "(", "1", "e", "f", "\xA0"};

std::optional<double> ValueOf(std::string_view separator, std::string_view text) {
    try {
        return EvaluateExpression(separator, text);
    } catch (const Error& error) {
        fuzz::Require(error.what()[0] == '\0', "the failure of an expression has no text");
        return std::nullopt;
    }
}

bool IsSame(double a, double b) {
    return std::isnan(a) ? std::isnan(b) : a == b && std::signbit(a) == std::signbit(b);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::string_view separator = Separators[input.Take<std::uint8_t>() % std::size(Separators)];
    const std::optional<double> value = ValueOf(separator, input.Rest());
    const std::optional<double> expected = fuzz::ReferenceValue(separator, input.Rest());
    fuzz::Require(value.has_value() == expected.has_value(), "the reference accepts the same texts");
    fuzz::Require(!value || IsSame(*value, *expected), "the reference gives the same value");
    return 0;
}
