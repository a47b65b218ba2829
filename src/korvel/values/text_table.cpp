#include "korvel/values/text_table.h"

#include "korvel/values/text_rows.h"

namespace korvel {

const char* Text(int id) {
    if (id < 0 || id >= TextCount)
        return "";
    return TextRows()[static_cast<std::size_t>(id)][static_cast<std::size_t>(GetLanguage().Column)];
}

void ReplaceFirst(std::string& text, const std::string& placeholder, const std::string& value) {
    if (const std::size_t found = text.find(placeholder); found != std::string::npos)
        text.replace(found, placeholder.size(), value);
}

} // namespace korvel
