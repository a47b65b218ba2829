#include "korvel/window/list/type_ahead.h"

#include "korvel/platform/code_page.h"

namespace korvel::internal {

using namespace std::chrono_literals;

namespace {

bool HasOneCharacterOnly(const std::string& text) {
    const char32_t first = platform::CharacterAt(text, 0).code;
    for (std::size_t at = 0; at < text.size(); at = platform::NextCharacter(text, at))
        if (platform::CharacterAt(text, at).code != first)
            return false;
    return true;
}

} // namespace

TypeAhead::Search TypeAhead::Type(const std::string& character, std::chrono::milliseconds now) {
    constexpr auto Pause = 1s;
    if (now - m_last > Pause)
        m_typed.clear();
    const auto first = static_cast<unsigned char>(character.front());
    const bool isControl = first < ' ' || first == 0x7F;
    if (isControl || (first == ' ' && m_typed.empty()))
        return {};
    m_last = now;
    m_typed += character;
    const std::string typed = platform::FoldCase(m_typed);
    const bool isRepeated = HasOneCharacterOnly(typed);
    return {isRepeated ? typed.substr(0, platform::NextCharacter(typed, 0)) : typed, isRepeated};
}

bool TypeAhead::BeginsWith(std::string_view text, const std::string& beginning) {
    const std::string_view enough =
        platform::CutCharacters(text, platform::LongestCharacter * beginning.size());
    return platform::BeginsWith(platform::FoldCase(enough), beginning);
}

} // namespace korvel::internal
