#pragma once

#include "korvel/output/number_format.h"
#include "korvel/parser/antlr_parser.h"
#include "korvel/platform/export.h"

#include <string_view>

namespace korvel {

/// The value of an arithmetic expression, as typed into a numeric cell.
///
///     EvaluateExpression(",", "2*(3+4,5)")  -> 15
///     EvaluateExpression(",", "1.234,5")    -> throws: thousands separators are not removed
///
/// The four operations with the usual precedence, from left to right, brackets, and one sign directly
/// before a number: "2*-3" and "1--2" (3) are valid, "--1" and "-(1)" are not. Every occurrence of the
/// decimal separator is read as a point; an empty separator changes nothing. See lexer_numeric_parser.h
/// for the forms of a number. A run of digits with no point and no exponent is a 32-bit integer and stops
/// at its bounds: "3000000000" gives 2147483647, "3000000000." does not. Division by zero gives an
/// infinity or not-a-number, and a number beyond the range of a double an infinity.
///
/// Throws Error with an empty text for everything else: text behind a complete expression, more than
/// 1,000 brackets open at once, a number longer than 2,000 bytes. Nothing is kept between two calls.
KORVEL_API double EvaluateExpression(std::string_view decimalSeparator, std::string_view text);

/// The same, as typed under a number format.
inline double EvaluateExpression(const _numberfmtA& format, std::string_view text) {
    return EvaluateExpression(format.DecimalSep, text);
}

/// Evaluates an expression while it is parsed; there is no tree.
class CNumericParser final : public ANTLRParser {
public:
    /// How a rule ended. Every rule hands on what is not Success.
    enum class Status { Success, SyntaxError, TooDeep, Panic };

    static constexpr int MaximumDepth = 1000;
    static constexpr std::size_t TokenBufferSize = 50;

    explicit CNumericParser(ANTLRTokenBuffer& tokens);

    /// The whole input as one expression. The value is meaningful with Success only.
    Status Parse(double& value);

protected:
    /// Silent: the cell tells its user in its own words.
    void OnSyntaxError(const WantedTokens&) override {}

private:
    void Expression(Status& status, double& value);
    void Term(Status& status, double& value);
    void Factor(Status& status, double& value);
    void BracketedExpression(Status& status, double& value);
    void SignedNumber(Status& status, double& value);

    int m_depth = 0;
};

} // namespace korvel
