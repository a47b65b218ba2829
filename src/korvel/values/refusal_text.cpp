#include "korvel/values/refusal_text.h"

#include "korvel/platform/code_page.h"
#include "korvel/values/replace_first.h"
#include "korvel/values/text_table.h"
#include "korvel/values/type_names.h"

namespace korvel::internal {

namespace {

constexpr std::size_t LongestQuote = 500; // bytes: a box has to fit on the screen

std::string NameText(const std::string& name, int reason) {
    return std::string(Text(36)) + " '" + platform::Abbreviate(name, LongestQuote) + "' " + Text(reason);
}

} // namespace

std::string InvalidNameText(const std::string& name) {
    return NameText(name, 1);
}

std::string TakenNameText(const std::string& name) {
    return NameText(name, 35);
}

std::string RefusalText(const std::string& own, const std::string& typed, EDataTyps type) {
    if (!own.empty())
        return own;
    std::string message = Text(45);
    ReplaceFirst(message, "$2", TypeName(type)); // before the typed text, which may hold a "$2"
    ReplaceFirst(message, "$1", platform::Abbreviate(typed, LongestQuote));
    return message;
}

} // namespace korvel::internal
