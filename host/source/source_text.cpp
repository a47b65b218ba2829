#include "source/source_text.h"

#include "korvel/platform/utf8.h"
#include "source/source_scanner.h"

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
        while (!raw.empty() && !IsFull()) {
            const std::size_t reference = std::min(raw.find('&'), raw.size());
            AppendSection(raw.substr(0, reference));
            raw.remove_prefix(reference);
            if (raw.empty() || IsFull())
                break;
            const std::size_t end = std::min(raw.find(';'), raw.size() - 1);
            platform::AppendUtf8(m_text.utf8, ReferencedCharacter(raw.substr(1, end - 1)));
            raw.remove_prefix(end + 1);
        }
        CutWhenTooLong();
    }

    void AppendSection(std::string_view raw) {
        const std::string_view changed = m_whitespace == Whitespace::AsBlanks ? "\t\n\r" : "\r";
        while (!raw.empty() && !IsFull()) {
            const std::size_t room = m_longest + 1 - m_text.utf8.size();
            const std::size_t end = std::min({raw.find_first_of(changed), raw.size(), room});
            m_text.utf8 += raw.substr(0, end);
            raw.remove_prefix(end);
            if (!raw.empty() && end != room)
                AppendBlank(raw);
        }
        CutWhenTooLong();
    }

    DecodedText Take() { return std::move(m_text); }

private:
    bool IsFull() const { return !m_text.complete || m_text.utf8.size() > m_longest; }

    void AppendBlank(std::string_view& raw) {
        m_text.utf8 += m_whitespace == Whitespace::AsBlanks ? ' ' : '\n';
        raw.remove_prefix(raw.starts_with("\r\n") ? 2 : 1);
    }

    void CutWhenTooLong() {
        if (m_text.utf8.size() <= m_longest)
            return;
        m_text.utf8.resize(platform::CutUtf8(m_text.utf8, m_longest).size());
        m_text.complete = false;
    }

    Whitespace m_whitespace;
    std::size_t m_longest;
    DecodedText m_text;
};

} // namespace

platform::ConvertedText ToLibraryText(const std::string& utf8) {
    const bool isAscii = std::all_of(utf8.begin(), utf8.end(), [](char c) { return (c & 0x80) == 0; });
    return isAscii ? platform::ConvertedText{utf8, true} : platform::FromUtf8(utf8);
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
