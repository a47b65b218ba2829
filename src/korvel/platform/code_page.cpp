#include "korvel/platform/code_page.h"

#include "korvel/platform/utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <unicode/uchar.h>

namespace korvel::platform {
namespace {

// The characters of 80 to 9F; every other byte is the character of its own number. Source: the
// Unicode Consortium's mapping table CP1252.TXT, with its best fit for the five bytes that it leaves
// undefined.
constexpr std::array<char16_t, 32> UpperControls{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr unsigned FirstUpperControl = 0x80;
constexpr char32_t LastCharacter = 0x2122; // the highest of all that the page holds

// A form of sequences. Where two forms could hold a character, the first one is its form.
struct Form {
    std::uint8_t lead;
    std::uint8_t trailing; // bytes after the lead
    char32_t first;
    char32_t last;
    char32_t offset; // what the payload is less than the character
};

constexpr std::array<Form, 4> Forms{{{0x81, 2, 0x100, 0x4FF, 0x100},
                                     {0x8D, 3, 0x80, 0x7FFF, 0},
                                     {0x8F, 3, 0x8000, 0xFFFF, 0x8000},
                                     {0x9D, 4, 0x10000, 0x10FFFF, 0x10000}}};
constexpr unsigned char Quote = 0x90;
constexpr unsigned char FirstTrailing = 0xE0;
constexpr int TrailingBits = 5;
constexpr std::size_t MostTrailing = LongestCharacter - 1;
static_assert(std::ranges::max(Forms, {}, &Form::trailing).trailing == MostTrailing);

unsigned char ByteAt(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

bool IsTrailing(unsigned char byte) {
    return byte >= FirstTrailing;
}

const Form* FormOfLead(unsigned char byte) {
    const auto found =
        std::find_if(Forms.begin(), Forms.end(), [=](const Form& form) { return form.lead == byte; });
    return found != Forms.end() ? &*found : nullptr;
}

// The form of a character that the page does not hold; null for one that it holds and for what is none.
const Form* FormOfCharacter(char32_t character) {
    if ((character >= 0xD800 && character <= 0xDFFF) || FromUnicode(character))
        return nullptr;
    const auto found = std::find_if(Forms.begin(), Forms.end(), [=](const Form& form) {
        return character >= form.first && character <= form.last;
    });
    return found != Forms.end() ? &*found : nullptr;
}

// The character whose payload begins at `at`; nothing when the bytes there are no payload of the form.
std::optional<char32_t> PayloadAt(std::string_view text, std::size_t at, const Form& form) {
    if (text.size() < at + form.trailing)
        return std::nullopt;
    char32_t payload = 0;
    for (std::size_t i = at; i < at + form.trailing; ++i) {
        if (!IsTrailing(ByteAt(text, i)))
            return std::nullopt;
        payload = (payload << TrailingBits) | (ByteAt(text, i) - FirstTrailing);
    }
    const char32_t character = payload + form.offset;
    return FormOfCharacter(character) == &form ? std::optional(character) : std::nullopt;
}

// Appends characters to a text so that they are read back as themselves.
class Writer {
public:
    explicit Writer(std::string& text) : m_text(text) {}

    void Append(char32_t character) {
        if (const Form* form = FormOfCharacter(character))
            AppendSequence(*form, character - form->offset);
        else
            AppendByte(static_cast<unsigned char>(FromUnicode(character).value_or('?')));
    }

    // Bytes below 80, which are their own characters.
    void AppendAscii(std::string_view run) {
        m_text.append(run);
        m_lead = nullptr;
    }

private:
    void AppendSequence(const Form& form, char32_t payload) {
        m_text.push_back(static_cast<char>(form.lead));
        for (int shift = (form.trailing - 1) * TrailingBits; shift >= 0; shift -= TrailingBits)
            m_text.push_back(static_cast<char>(FirstTrailing + ((payload >> shift) & 0x1F)));
        m_lead = nullptr;
    }

    void AppendByte(unsigned char byte) {
        m_text.push_back(static_cast<char>(byte));
        if (const Form* form = FormOfLead(byte)) {
            m_lead = form;
            m_leadEnd = m_text.size();
            m_payload = 0;
        } else if (m_lead && IsTrailing(byte)) {
            if (++m_payload < m_lead->trailing)
                return;
            if (PayloadAt(m_text, m_text.size() - m_payload, *m_lead))
                m_text.insert(m_leadEnd, 1, static_cast<char>(Quote));
            m_lead = nullptr;
        } else if (byte != Quote || m_payload > 0) {
            m_lead = nullptr;
        }
    }

    std::string& m_text;
    // A lead byte that is a character itself, and what could make a sequence of it.
    const Form* m_lead = nullptr;
    std::size_t m_leadEnd = 0;
    std::size_t m_payload = 0; // trailing bytes so far
};

// How many bytes below 80 the text begins with.
std::size_t AsciiLength(std::string_view text) {
    constexpr std::uint64_t HighBits = 0x8080808080808080;
    std::size_t length = 0;
    for (std::uint64_t word = 0; length + sizeof word <= text.size(); length += sizeof word) {
        std::memcpy(&word, text.data() + length, sizeof word);
        if (word & HighBits)
            break;
    }
    while (length < text.size() && ByteAt(text, length) < 0x80)
        ++length;
    return length;
}

// Calls `ascii` with each run of bytes below 80 and `other` with each other character, in order.
template <class Ascii, class Other>
void ForEachCharacter(std::string_view text, Ascii ascii, Other other) {
    for (std::size_t at = 0; at < text.size();) {
        if (const std::size_t run = AsciiLength(text.substr(at))) {
            ascii(text.substr(at, run));
            at += run;
        } else {
            const Character character = CharacterAt(text, at);
            other(character.code);
            at += character.length;
        }
    }
}

char FoldByte(char byte) {
    const auto number = static_cast<unsigned char>(byte);
    const bool isAccentedCapital =
        number >= 0xC0 && number <= 0xDE && number != 0xD7; // D7: multiplication sign
    if ((number >= 'A' && number <= 'Z') || isAccentedCapital)
        return static_cast<char>(number + 0x20);
    if (number == 0x8A || number == 0x8C || number == 0x8E) // S and Z with caron, OE
        return static_cast<char>(number + 0x10);
    return number == 0x9F ? '\xFF' : byte; // Y with diaeresis
}

char32_t FoldCharacter(char32_t character) {
    if (const std::optional<char> byte = FromUnicode(character))
        return ToUnicode(FoldByte(*byte));
    return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(character), U_FOLD_CASE_DEFAULT));
}

} // namespace

char32_t ToUnicode(char byte) {
    const auto number = static_cast<unsigned char>(byte);
    const bool isUpperControl =
        number >= FirstUpperControl && number < FirstUpperControl + UpperControls.size();
    return isUpperControl ? UpperControls[number - FirstUpperControl] : number;
}

std::optional<char> FromUnicode(char32_t character) {
    if (character < FirstUpperControl || (character >= 0xA0 && character <= 0xFF))
        return static_cast<char>(character);
    if (character > LastCharacter)
        return std::nullopt;
    const auto found = std::find(UpperControls.begin(), UpperControls.end(), character);
    if (found == UpperControls.end())
        return std::nullopt;
    return static_cast<char>(FirstUpperControl + static_cast<unsigned>(found - UpperControls.begin()));
}

Character CharacterAt(std::string_view text, std::size_t at) {
    if (const Form* form = FormOfLead(ByteAt(text, at))) {
        if (const std::optional<char32_t> character = PayloadAt(text, at + 1, *form))
            return {*character, 1u + form->trailing};
        const std::size_t payload =
            std::min(text.find_first_not_of(static_cast<char>(Quote), at + 1), text.size());
        if (payload > at + 1 && PayloadAt(text, payload, *form))
            return {ToUnicode(text[at]), 2};
    }
    return {ToUnicode(text[at]), 1};
}

std::size_t CharacterBorder(std::string_view text, std::size_t at) {
    if (at >= text.size())
        return text.size();
    // Only a lead byte makes one character of several bytes, and none but trailing bytes and a 90 follow it.
    for (std::size_t lead = at; lead > 0 && at - lead < MostTrailing;) {
        --lead;
        if (FormOfLead(ByteAt(text, lead)))
            return lead + CharacterAt(text, lead).length > at ? lead : at;
        if (!IsTrailing(ByteAt(text, lead)))
            break;
    }
    return at;
}

std::size_t NextCharacter(std::string_view text, std::size_t at) {
    const std::size_t border = CharacterBorder(text, at);
    return border < text.size() ? border + CharacterAt(text, border).length : border;
}

std::size_t PreviousCharacter(std::string_view text, std::size_t at) {
    at = std::min(at, text.size());
    return at > 0 ? CharacterBorder(text, at - 1) : 0;
}

std::size_t CountCharacters(std::string_view text) {
    std::size_t count = 0;
    ForEachCharacter(
        text, [&](std::string_view run) { count += run.size(); }, [&](char32_t) { ++count; });
    return count;
}

std::string_view CutCharacters(std::string_view text, std::size_t longest) {
    return text.substr(0, CharacterBorder(text, longest));
}

std::string Abbreviate(std::string_view text, std::size_t longest) {
    constexpr int MostLines = 30;
    std::size_t end = text.find('\n');
    for (int line = 1; line < MostLines && end < text.size(); ++line)
        end = text.find('\n', end + 1);
    end = std::min(end, longest);
    return end < text.size() ? std::string(CutCharacters(text, end)) + "..." : std::string(text);
}

bool BeginsWith(std::string_view text, std::string_view beginning) {
    std::size_t at = 0;
    for (std::size_t next = 0; next < beginning.size();) {
        if (at >= text.size())
            return false;
        const Character character = CharacterAt(text, at);
        const Character wanted = CharacterAt(beginning, next);
        if (character.code != wanted.code)
            return false;
        at += character.length;
        next += wanted.length;
    }
    return true;
}

std::string ToUtf8(std::string_view text) {
    std::string utf8;
    utf8.reserve(text.size());
    ForEachCharacter(
        text, [&](std::string_view run) { utf8.append(run); },
        [&](char32_t character) { AppendUtf8(utf8, character); });
    return utf8;
}

ConvertedText FromUtf8(std::string_view utf8) {
    ConvertedText result;
    result.text.reserve(utf8.size());
    Writer writer(result.text);
    while (!utf8.empty()) {
        if (const std::size_t run = AsciiLength(utf8)) {
            writer.AppendAscii(utf8.substr(0, run));
            utf8.remove_prefix(run);
            continue;
        }
        const std::optional<char32_t> character = TakeUtf8(utf8);
        writer.Append(character.value_or(U'?'));
        result.exact = result.exact && character;
    }
    return result;
}

std::string FoldCase(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    Writer writer(folded);
    ForEachCharacter(
        text,
        [&](std::string_view run) {
            std::string small(run);
            std::transform(small.begin(), small.end(), small.begin(), FoldByte);
            writer.AppendAscii(small);
        },
        [&](char32_t character) { writer.Append(FoldCharacter(character)); });
    return folded;
}

} // namespace korvel::platform
