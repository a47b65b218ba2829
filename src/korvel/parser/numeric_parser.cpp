#include "korvel/parser/numeric_parser.h"

#include "korvel/parser/numeric_tokens.h"

#include <array>

namespace korvel::internal {

namespace {

constexpr TokenSet SumSigns = 0x01;
constexpr TokenSet ProductSigns = 0x02;
constexpr TokenSet Numbers = 0x04;
constexpr TokenSet NumberBegins = 0x08;

constexpr std::array<const char*, NumericTokenCount> TokenNames = {
    "Invalid",   "<eof>",     "S_ADD",       "S_MINUS",   "S_MUL",      "S_DIV",
    "S_BRACE_O", "S_BRACE_C", "FLOAT_VALUE", "INT_VALUE", "Whitespace", "Newline"};

constexpr std::array<TokenSet, NumericTokenCount> TokenSets = {
    0,                       // Invalid
    0,                       // end of input
    SumSigns | NumberBegins, // S_ADD
    SumSigns | NumberBegins, // S_MINUS
    ProductSigns,            // S_MUL
    ProductSigns,            // S_DIV
    0,                       // S_BRACE_O
    0,                       // S_BRACE_C
    Numbers | NumberBegins,  // FLOAT_VALUE
    Numbers | NumberBegins,  // INT_VALUE
    0,                       // Whitespace
    0,                       // Newline
};

} // namespace

CNumericParser::CNumericParser(ANTLRTokenBuffer& tokens, WholeNumbers wholeNumbers)
    : ANTLRParser(tokens, {TokenNames, TokenSets}), m_wholeNumbers(wholeNumbers) {}

CNumericParser::Status CNumericParser::Parse(double& value) {
    Status status = Status::Success;
    m_depth = 0;
    const bool finished = Run([&] {
        Expression(status, value);
        if (status == Status::Success && !Match(EndOfInput, "expression"))
            status = Status::SyntaxError;
    });
    return finished ? status : Status::Panic;
}

void CNumericParser::Expression(Status& status, double& value) {
    Term(status, value);
    while (status == Status::Success && LookaheadIn(SumSigns)) {
        const int sign = Lookahead();
        Consume();
        double operand = 0;
        Term(status, operand);
        value = sign == S_ADD ? value + operand : value - operand;
    }
}

void CNumericParser::Term(Status& status, double& value) {
    Factor(status, value);
    while (status == Status::Success && LookaheadIn(ProductSigns)) {
        const int sign = Lookahead();
        Consume();
        double operand = 0;
        Factor(status, operand);
        // Division by zero is no failure here: the caller checks the range of what it stores.
        value = sign == S_MUL ? value * operand : value / operand;
    }
}

void CNumericParser::Factor(Status& status, double& value) {
    if (LookaheadIn(NumberBegins))
        SignedNumber(status, value);
    else
        BracketedExpression(status, value);
}

void CNumericParser::BracketedExpression(Status& status, double& value) {
    if (!Match(S_BRACE_O, "factor")) {
        status = Status::SyntaxError;
        return;
    }
    if (++m_depth > MaximumDepth) {
        status = Status::TooDeep;
        return;
    }
    Expression(status, value);
    --m_depth;
    if (status == Status::Success && !Match(S_BRACE_C, "factor"))
        status = Status::SyntaxError;
}

double CNumericParser::WholeNumber(NumberSign sign, std::string_view digits) const {
    if (m_wholeNumbers == WholeNumbers::Of32Bits)
        return IntegerOfDigits(sign, digits);
    return DoubleOfText(sign, digits) + 0.0; // there is no negative zero among whole numbers
}

void CNumericParser::SignedNumber(Status& status, double& value) {
    const NumberSign sign = Lookahead() == S_MINUS ? NumberSign::Negative : NumberSign::Positive;
    if (LookaheadIn(SumSigns))
        Consume();
    if (Lookahead() == INT_VALUE)
        value = WholeNumber(sign, LookaheadToken().GetText());
    else if (Lookahead() == FLOAT_VALUE)
        value = DoubleOfText(sign, LookaheadToken().GetText());
    if (!MatchSet(Numbers, "factor"))
        status = Status::SyntaxError;
}

} // namespace korvel::internal
