#include "korvel/documents/xml_text.h"

#include "korvel/documents/xml_scanner.h"
#include "korvel/platform/utf8.h"

#include <algorithm>

namespace korvel {
namespace {

// What becomes of tabs and ends of line: in attributes XML makes blanks of them.
enum class Whitespace { Kept, AsBlanks };

// Appends what characters mean: references resolved and, as XML has it, each end of line as one LF.
class TextDecoder {
public:
    TextDecoder(Whitespace whitespace, std::size_t longest)
        : m_whitespace(whitespace), m_longest(std::min(longest, Unlimited)) {}

    void AppendCharacters(std::string_view raw) {
        while (!raw.empty() && !IsFull()) {
            const std::size_t reference = std::min(raw.find('&'), raw.size());
            AppendSection(raw.substr(0, reference));
            raw.remove_prefix(reference);
            if (raw.empty() || IsFull())
                break;
            const std::size_t end = std::min(raw.find(';'), raw.size() - 1);
            platform::AppendUtf8(m_text.utf8, XmlScanner::Referenced(raw.substr(1, end - 1)));
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

    bool IsFull() const { return !m_text.complete || m_text.utf8.size() > m_longest; }

    XmlCharacters Take() { return std::move(m_text); }

private:
    static constexpr std::size_t Unlimited = std::string::npos - 1; // one more is still a size

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
    XmlCharacters m_text;
};

} // namespace

std::string_view TrimXmlBlanks(std::string_view text) {
    while (!text.empty() && XmlScanner::IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && XmlScanner::IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

XmlCharacters DecodeXmlAttribute(std::string_view raw, std::size_t longest) {
    TextDecoder decoder(Whitespace::AsBlanks, longest);
    decoder.AppendCharacters(raw);
    return decoder.Take();
}

XmlCharacters DecodeXmlText(std::string_view raw, std::size_t longest) {
    TextDecoder decoder(Whitespace::Kept, longest);
    XmlScanner scanner(raw);
    while (!scanner.AtEnd() && !decoder.IsFull())
        if (scanner.IsAt("<!--"))
            scanner.SkipComment();
        else if (scanner.IsAt("<?"))
            scanner.SkipInstruction();
        else if (scanner.IsAt("<"))
            decoder.AppendSection(scanner.TakeCharacterSection());
        else
            decoder.AppendCharacters(scanner.TakeCharacterData());
    return decoder.Take();
}

} // namespace korvel
