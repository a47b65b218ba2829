#include "korvel/platform/integer_text.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace korvel::internal {

int ReadInteger(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t bound = negative ? -std::int64_t{Limits::min()} : Limits::max();
    std::int64_t number = 0;
    for (std::size_t i = 0; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i)
        number = std::min(number * 10 + (text[i] - '0'), bound);
    return static_cast<int>(negative ? -number : number);
}

} // namespace korvel::internal
