#pragma once

#include <string_view>
#include <vector>

namespace korvel::inspector {

/// `text` without the blanks around it; blanks are the white space of XML.
std::string_view Trim(std::string_view text);

/// The words between the blanks: " a  b " -> "a", "b".
std::vector<std::string_view> SplitAtBlanks(std::string_view text);

} // namespace korvel::inspector
