#include "source_error.h"

#include "platform/code_page.h"

#include <algorithm>

namespace korvel::inspector {
namespace {

bool StartsCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

std::string WithFile(const std::string& file, const SourceError& error) {
    return file + ": line " + std::to_string(error.Place().line) + ", position " +
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
    place.position += static_cast<std::size_t>(std::count_if(
        before.begin() + static_cast<std::ptrdiff_t>(lineStart), before.end(), StartsCharacter));
    return place;
}

std::string Quoted(std::string_view piece) {
    constexpr std::size_t Longest = 60;
    if (piece.size() <= Longest)
        return "'" + std::string(piece) + "'";
    std::size_t end = Longest;
    while (end > 0 && !StartsCharacter(piece[end]))
        --end;
    return "'" + std::string(piece.substr(0, end)) + "...'";
}

DocumentError::DocumentError(const std::string& file, const std::string& reason)
    : Error(platform::FromUtf8(file + ": " + reason).text), m_text(file + ": " + reason) {}

DocumentError::DocumentError(const std::string& file, const SourceError& error)
    : Error(platform::FromUtf8(WithFile(file, error)).text), m_text(WithFile(file, error)) {}

} // namespace korvel::inspector
