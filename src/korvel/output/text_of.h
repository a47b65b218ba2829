#pragma once

#include <string>

namespace korvel::internal {

/// The text that a service appends for a value.
template <typename Service, typename Value>
std::string TextOf(Value value) {
    std::string text;
    Service::Instance().Append(text, value);
    return text;
}

} // namespace korvel::internal
