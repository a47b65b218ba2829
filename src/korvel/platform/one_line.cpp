#include "korvel/platform/one_line.h"

namespace korvel::platform {

void AppendInOneLine(std::string& line, std::string_view text) {
    constexpr std::string_view Breaks("\t\r\n\0", 4);
    for (std::size_t end = text.find_first_of(Breaks); end != std::string_view::npos;
         end = text.find_first_of(Breaks)) {
        line.append(text.substr(0, end)) += ' ';
        text.remove_prefix(end + (text.substr(end).starts_with("\r\n") ? 2 : 1));
    }
    line += text;
}

void AppendTableCell(std::string& line, std::string_view text) {
    const std::size_t start = line.size();
    AppendInOneLine(line, text);
    QuoteTableCell(line, start);
}

void QuoteTableCell(std::string& line, std::size_t start) {
    const std::size_t first = line.find_first_not_of(' ', start);
    if (first == std::string::npos || line[first] != '"')
        return;
    std::string quoted = "\"";
    for (const char character : std::string_view(line).substr(start))
        quoted.append(character == '"' ? 2 : 1, character);
    line.replace(start, std::string::npos, quoted += '"');
}

} // namespace korvel::platform
