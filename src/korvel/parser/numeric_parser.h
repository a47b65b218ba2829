#pragma once

#include "korvel/parser/antlr_parser.h"
#include "korvel/parser/evaluate_expression.h"
#include "korvel/parser/number_of_text.h"

namespace korvel::internal {

/// Evaluates an expression while it is parsed; there is no tree. `evaluate_expression.h` says what it
/// accepts.
class CNumericParser final : public ANTLRParser {
public:
    /// How a rule ended. Every rule hands on what is not Success.
    enum class Status { Success, SyntaxError, TooDeep, Panic };

    static constexpr int MaximumDepth = 1000;
    static constexpr std::size_t TokenBufferSize = 50;

    explicit CNumericParser(ANTLRTokenBuffer& tokens, WholeNumbers wholeNumbers = WholeNumbers::Of32Bits);

    /// The whole input as one expression. The value is meaningful with `Success` only.
    Status Parse(double& value);

protected:
    /// Silent: the cell has its own words for the user.
    void OnSyntaxError(const WantedTokens&) override {}

private:
    void Expression(Status& status, double& value);
    void Term(Status& status, double& value);
    void Factor(Status& status, double& value);
    void BracketedExpression(Status& status, double& value);
    void SignedNumber(Status& status, double& value);
    double WholeNumber(NumberSign sign, std::string_view digits) const;

    WholeNumbers m_wholeNumbers;
    int m_depth = 0;
};

} // namespace korvel::internal
