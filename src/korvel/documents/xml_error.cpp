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

std::string XmlReason::Text() const {
    std::string text;
    for (std::string_view rest = sentence; !rest.empty();) {
        const std::size_t mark = std::min(rest.find('%'), rest.size());
        text += rest.substr(0, mark);
        rest.remove_prefix(mark);
        if (rest.size() < 2)
            return text.append(rest);
        const auto piece = static_cast<std::size_t>(rest[1] - '1');
        text += piece < pieces.size() ? std::string_view(pieces[piece]) : rest.substr(0, 2);
        rest.remove_prefix(2);
    }
    return text;
}

XmlError::XmlError(std::string_view text, std::size_t offset, const XmlReason& reason, Cause cause)
    : Error(platform::FromUtf8(reason.Text()).text), m_place(XmlPlaceOf(text, offset)), m_cause(cause),
      m_details(reason), m_reason(reason.Text()) {}

std::string XmlError::Quoted(std::string_view piece) {
    constexpr std::size_t Longest = 60;
    const std::string_view shown = platform::CutUtf8(piece, Longest);
    return "'" + std::string(shown) + (shown.size() < piece.size() ? "...'" : "'");
}

} // namespace korvel
