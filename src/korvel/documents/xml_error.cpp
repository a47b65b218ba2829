#include "korvel/documents/xml_error.h"

#include "korvel/platform/code_page.h"
#include "korvel/platform/utf8.h"

#include <algorithm>

namespace korvel {

XmlPlace XmlPlaceOf(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, std::min(offset, text.size()));
    XmlPlace place;
    std::size_t lineStart = 0;
    for (std::size_t i = 0; i < before.size(); ++i) {
        const bool endsLine =
            before[i] == '\n' || (before[i] == '\r' && (i + 1 >= text.size() || text[i + 1] != '\n'));
        if (endsLine) {
            ++place.line;
            lineStart = i + 1;
        }
    }
    const std::string_view line = before.substr(lineStart);
    place.position += line.size() - static_cast<std::size_t>(
                                        std::count_if(line.begin(), line.end(), platform::ContinuesUtf8));
    return place;
}

XmlError::XmlError(std::string_view text, std::size_t offset, const std::string& reason)
    : Error(platform::FromUtf8(reason).text), m_place(XmlPlaceOf(text, offset)), m_reason(reason) {}

std::string XmlError::Quoted(std::string_view piece) {
    constexpr std::size_t Longest = 60;
    const std::string_view shown = platform::CutUtf8(piece, Longest);
    return "'" + std::string(shown) + (shown.size() < piece.size() ? "...'" : "'");
}

} // namespace korvel
