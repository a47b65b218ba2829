#include "korvel/parser/syntax_error_text.h"

#include <cstdio>

namespace korvel::internal {

namespace {

std::string WantedText(std::string_view found, const std::vector<const char*>& names) {
    std::string text;
    if (names.size() > 1)
        text.append("; \"").append(found).append("\" not {");
    else if (names.size() == 1)
        text = " missing";
    for (const char* name : names)
        text.append(" ").append(name);
    return names.size() > 1 ? text + " }" : text;
}

} // namespace

std::string SyntaxErrorText(int line, std::string_view found, const WantedTokens& wanted) {
    std::string text = "line " + std::to_string(line) + ": syntax error at \"";
    text.append(found).append("\"").append(WantedText(found, wanted.names));
    if (wanted.rule != nullptr)
        text.append(" in ").append(wanted.rule);
    return text + "\n";
}

std::string SemanticErrorText(int line, std::string_view predicate) {
    std::string text = "line " + std::to_string(line) + ": semantic error; failed predicate: '";
    return text.append(predicate).append("'\n");
}

void WriteErrorText(std::string_view text) {
    std::fwrite(text.data(), 1, text.size(), stderr);
}

} // namespace korvel::internal
