#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace korvel::internal {

/// What the parser expected at a syntax error; each field may be empty.
struct WantedTokens {
    std::vector<const char*> names;
    const char* rule = nullptr;
};

/// The line that reports a syntax error, its line end included.
///
///     SyntaxErrorText(2, ")", {{"NUMBER"}})
///         // line 2: syntax error at ")" missing NUMBER
///     SyntaxErrorText(2, ")", {{"NUMBER", "NAME"}, "sum"})
///         // line 2: syntax error at ")"; ")" not { NUMBER NAME } in sum
std::string SyntaxErrorText(int line, std::string_view found, const WantedTokens& wanted);

/// The line that reports a failed predicate, its line end included.
std::string SemanticErrorText(int line, std::string_view predicate);

/// Writes it to the standard error stream.
void WriteErrorText(std::string_view text);

} // namespace korvel::internal
