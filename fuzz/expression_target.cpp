// First byte: the decimal separator. Rest: the text of a numeric cell.

#include "fuzz_target.h"
#include "korvel/parser/evaluate_expression.h"
#include "korvel/platform/error.h"

namespace {

using namespace korvel;

constexpr std::string_view Separators[] = {".", ",", "",  " ", "'", "::",  "...",
                                           "+", "(", "1", "e", "f", "\xA0"};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::string_view separator = Separators[input.Take<std::uint8_t>() % std::size(Separators)];
    try {
        EvaluateExpression(separator, input.Rest());
    } catch (const Error& error) {
        fuzz::Require(error.what()[0] == '\0', "the failure of an expression has no text");
    }
    return 0;
}
