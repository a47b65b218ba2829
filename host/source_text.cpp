#include "source_text.h"

#include "source_scanner.h"

#include <algorithm>

namespace korvel::inspector {
namespace {

constexpr std::string_view SectionStart = "<![CDATA[";
constexpr std::string_view SectionEnd = "]]>";

// What becomes of tabs and ends of line: in attributes XML makes blanks of them.
enum class Whitespace { Kept, AsBlanks };

// Appends what characters mean: references resolved and, as XML has it, each end of line as one LF.
class TextDecoder {
public:
    TextDecoder(Whitespace whitespace, std::size_t longest) : m_whitespace(whitespace), m_longest(longest) {}

    void AppendCharacters(std::string_view raw) {
        for (std::size_t i = 0; i < raw.size() && !IsFull(); ++i) {
            if (raw[i] == '&') {
                const std::size_t end = std::min(raw.find(';', i), raw.size());
                AppendUtf8(m_text.utf8, ReferencedCharacter(raw.substr(i + 1, end - i - 1)));
                i = end;
            } else {
                AppendCharacter(raw, i);
            }
        }
        CutWhenTooLong();
    }

    void AppendSection(std::string_view raw) {
        for (std::size_t i = 0; i < raw.size() && !IsFull(); ++i)
            AppendCharacter(raw, i);
        CutWhenTooLong();
    }

    DecodedText Take() { return std::move(m_text); }

private:
    bool IsFull() const { return !m_text.complete || m_text.utf8.size() > m_longest; }

    void AppendCharacter(std::string_view raw, std::size_t& i) {
        char c = raw[i];
        if (c == '\r') {
            c = '\n';
            if (i + 1 < raw.size() && raw[i + 1] == '\n')
                ++i;
        }
        m_text.utf8 += m_whitespace == Whitespace::AsBlanks && IsBlank(c) ? ' ' : c;
    }

    void CutWhenTooLong() {
        if (m_text.utf8.size() <= m_longest)
            return;
        std::size_t end = m_longest;
        while (end > 0 && (static_cast<unsigned char>(m_text.utf8[end]) & 0xC0) == 0x80)
            --end;
        m_text.utf8.resize(end);
        m_text.complete = false;
    }

    Whitespace m_whitespace;
    std::size_t m_longest;
    DecodedText m_text;
};

} // namespace

void AppendUtf8(std::string& out, char32_t c) {
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | c >> 6);
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | c >> 12);
        out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | c >> 18);
        out += static_cast<char>(0x80 | (c >> 12 & 0x3F));
        out += static_cast<char>(0x80 | (c >> 6 & 0x3F));
        out += static_cast<char>(0x80 | (c & 0x3F));
    }
}

DecodedText DecodeAttribute(std::string_view raw, std::size_t longest) {
    TextDecoder decoder(Whitespace::AsBlanks, longest);
    decoder.AppendCharacters(raw);
    return decoder.Take();
}

DecodedText DecodeText(const TextSource& source, std::size_t longest) {
    TextDecoder decoder(Whitespace::Kept, longest);
    std::string_view rest = source.raw;
    while (!rest.empty()) {
        const std::size_t markup = std::min(rest.find('<'), rest.size());
        decoder.AppendCharacters(rest.substr(0, markup));
        rest.remove_prefix(markup);
        if (rest.empty())
            break;
        SourceScanner scanner(rest);
        if (scanner.IsAt(SectionStart)) {
            scanner.CharacterSection();
            decoder.AppendSection(rest.substr(SectionStart.size(),
                                              scanner.Position() - SectionStart.size() - SectionEnd.size()));
        } else if (scanner.IsAt("<!--")) {
            scanner.Comment();
        } else {
            scanner.Instruction();
        }
        rest.remove_prefix(scanner.Position());
    }
    DecodedText text = decoder.Take();
    text.complete = text.complete && source.complete;
    return text;
}

} // namespace korvel::inspector
