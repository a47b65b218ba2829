#include "source/blanks.h"

#include "korvel/documents/xml_scanner.h"
#include "korvel/documents/xml_text.h"

namespace korvel::inspector {

std::string_view Trim(std::string_view text) {
    return TrimXmlBlanks(text);
}

std::vector<std::string_view> SplitAtBlanks(std::string_view text) {
    std::vector<std::string_view> words;
    for (text = Trim(text); !text.empty(); text = Trim(text)) {
        std::size_t end = 0;
        while (end < text.size() && !XmlScanner::IsBlank(text[end]))
            ++end;
        words.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return words;
}

} // namespace korvel::inspector
