#include "korvel/window/list/type_ahead.h"

#include "korvel/platform/code_page.h"

namespace korvel::internal {

using namespace std::chrono_literals;

TypeAhead::Search TypeAhead::Type(char character, std::chrono::milliseconds now) {
    constexpr auto Pause = 1s;
    if (now - m_last > Pause)
        m_typed.clear();
    const bool isControl = static_cast<unsigned char>(character) < ' ' || character == '\x7F';
    if (isControl || (character == ' ' && m_typed.empty()))
        return {};
    m_last = now;
    m_typed += platform::FoldCase({&character, 1});
    const bool isRepeated = m_typed.find_first_not_of(m_typed.front()) == std::string::npos;
    return {isRepeated ? m_typed.substr(0, 1) : m_typed, isRepeated};
}

bool TypeAhead::BeginsWith(std::string_view text, const std::string& beginning) {
    return platform::FoldCase(text.substr(0, beginning.size())) == beginning;
}

} // namespace korvel::internal
