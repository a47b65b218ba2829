#pragma once

#include <string_view>
#include <vector>

namespace korvel::inspector {

/// What XML calls white space.
inline bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

/// `text` without the blanks around it.
std::string_view Trim(std::string_view text);

/// The words between the blanks: " a  b " -> "a", "b".
std::vector<std::string_view> SplitAtBlanks(std::string_view text);

} // namespace korvel::inspector
