#include "korvel/parser/evaluate_expression.h"

#include "korvel/parser/lexer_numeric_parser.h"
#include "korvel/parser/numeric_parser.h"
#include "korvel/platform/error.h"

#include <array>
#include <memory_resource>
#include <string>

namespace korvel {

namespace {

std::string WithPoint(std::string_view text, std::string_view decimalSeparator) {
    std::string result;
    result.reserve(text.size());
    std::size_t begin = 0;
    for (std::size_t found; (found = text.find(decimalSeparator, begin)) != std::string_view::npos;) {
        result.append(text, begin, found - begin).append(".");
        begin = found + decimalSeparator.size();
    }
    return result.append(text, begin);
}

// The panic of a cell: the parse ends, and nothing else happens.
void EndParseSilently(const char*) {}

// All that an evaluation needs is on the stack, so that it takes no memory from the heap.
double EvaluateWithPoint(std::string_view text, WholeNumbers wholeNumbers) {
    std::array<char, internal::CLexerNumericParser::TextBufferSize> tokenText;
    internal::CLexerNumericParser scanner;
    scanner.SetPanicHandler(EndParseSilently);
    scanner.SetInput(text);
    scanner.SetTextBuffer(tokenText);

    constexpr std::size_t WindowBytes =
        internal::ANTLRTokenBuffer::BytesFor(internal::CNumericParser::TokenBufferSize);
    alignas(internal::ANTLRCommonToken) std::array<std::byte, WindowBytes> window;
    std::pmr::monotonic_buffer_resource memory(window.data(), window.size());
    internal::ANTLRTokenBuffer tokens(scanner, internal::CNumericParser::TokenBufferSize, EndParseSilently,
                                      memory);
    internal::CNumericParser parser(tokens, wholeNumbers);
    parser.SetPanicHandler(EndParseSilently);
    double value = 0;
    if (parser.Parse(value) != internal::CNumericParser::Status::Success)
        throw Error("");
    return value;
}

} // namespace

double EvaluateExpression(std::string_view decimalSeparator, std::string_view text,
                          WholeNumbers wholeNumbers) {
    if (decimalSeparator.empty() || decimalSeparator == ".")
        return EvaluateWithPoint(text, wholeNumbers);
    return EvaluateWithPoint(WithPoint(text, decimalSeparator), wholeNumbers);
}

double EvaluateExpression(const _numberfmtA& format, std::string_view text, WholeNumbers wholeNumbers) {
    return EvaluateExpression(format.DecimalSep, text, wholeNumbers);
}

} // namespace korvel
