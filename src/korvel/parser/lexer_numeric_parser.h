#pragma once

#include "korvel/parser/dlg_lexer_base.h"

namespace korvel::internal {

/// The scanner of arithmetic expressions; its tokens are those of numeric_tokens.h.
///
/// Floating-point forms are "1.5", "1.", ".5" and each of them, or a run of digits, followed by an
/// exponent: "1e5", "1.5E-3". Blanks, tabs and line ends are skipped, and so is the letter "f": "1.5f" as
/// copied from program text reads as 1.5. A carriage return with a line feed is one line end.
class CLexerNumericParser final : public DLGLexerBase {
public:
    /// The longest token in bytes.
    static constexpr std::size_t TextBufferSize = 2000;

    CLexerNumericParser();

protected:
    /// Silent: the cell has its own words for the user.
    void ReportError(std::string_view) const override {}
};

} // namespace korvel::internal
