#include "korvel/values/replace_first.h"

namespace korvel {

void ReplaceFirst(std::string& text, const std::string& placeholder, const std::string& value) {
    if (const std::size_t found = text.find(placeholder); found != std::string::npos)
        text.replace(found, placeholder.size(), value);
}

} // namespace korvel
