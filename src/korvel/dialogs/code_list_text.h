#pragma once

#include "korvel/platform/export.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvel {

/// One row of a code list: a code of the host's, and what stands for it.
struct CodePair {
    std::string code;
    std::string value;
    bool operator==(const CodePair&) const = default;
};

/// The pairs of a code list's text, "code:value;code:value". Empty pieces are skipped; the first ":" of a
/// piece separates, and a piece without one is a value.
///
///     ParseCodeList(";;a:b:c;d;")   // {"a", "b:c"}, {"", "d"}
KORVEL_API std::vector<CodePair> ParseCodeList(std::string_view text);

/// The text of the pairs. There is no escape: see CanHoldPair for what comes back otherwise than it was.
KORVEL_API std::string WriteCodeList(std::span<const CodePair> pairs);

/// False for a pair that a code list's text cannot hold: with ";" in it, or with ":" in the code.
KORVEL_API bool CanHoldPair(const CodePair& pair);

} // namespace korvel
