#include "korvel/values/text_table.h"

#include "korvel/values/language.h"
#include "korvel/values/text_rows.h"

namespace korvel {

const char* Text(int id) {
    if (id < 0 || id >= TextCount)
        return "";
    const internal::TextRow& row = internal::TextRows()[static_cast<std::size_t>(id)];
    switch (GetLanguage().column) {
    case LanguageChoice::English:
        return row.english;
    case LanguageChoice::German:
        return row.german;
    default:
        return "";
    }
}

} // namespace korvel
