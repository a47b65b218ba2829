#include "source/source_error.h"

#include "korvel/platform/code_page.h"
#include "korvel/platform/utf8.h"

#include <algorithm>

namespace korvel::inspector {
namespace {

std::string AtPlace(const SourceError& error) {
    return "line " + std::to_string(error.Place().line) + ", position " +
           std::to_string(error.Place().position) + ": " + error.what();
}

} // namespace

SourcePlace PlaceOf(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, std::min(offset, text.size()));
    SourcePlace place;
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

std::string Quoted(std::string_view piece) {
    constexpr std::size_t Longest = 60;
    const std::string_view shown = platform::CutUtf8(piece, Longest);
    return "'" + std::string(shown) + (shown.size() < piece.size() ? "...'" : "'");
}

DocumentError::DocumentError(const std::string& file, const std::string& reason)
    : Error(platform::FromUtf8(file + ": " + reason).text), m_text(file + ": " + reason) {}

DocumentError::DocumentError(const std::string& file, const SourceError& error)
    : DocumentError(file, AtPlace(error)) {}

} // namespace korvel::inspector
