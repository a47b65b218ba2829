#pragma once

namespace korvel::internal {

/// The tokens of an arithmetic expression; 0 and 1 are those of every grammar.
enum NumericTokens : int {
    S_ADD = 2,
    S_MINUS = 3,
    S_MUL = 4,
    S_DIV = 5,
    S_BRACE_O = 6,
    S_BRACE_C = 7,
    FLOAT_VALUE = 8,
    INT_VALUE = 9,
    Whitespace = 10,
    Newline = 11,
    NumericTokenCount = 12
};

} // namespace korvel::internal
