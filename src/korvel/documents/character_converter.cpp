#include "korvel/documents/character_converter.h"

#include "korvel/platform/error.h"
#include "korvel/platform/utf8.h"

#include <algorithm>
#include <array>
#include <unicode/ucnv.h>

namespace korvel::internal {

void CharacterConverter::Close::operator()(UConverter* converter) const {
    ucnv_close(converter);
}

std::string CharacterConverter::CanonicalName(const std::string& name) {
    UErrorCode error = U_ZERO_ERROR;
    const char* canonical = ucnv_getAlias(name.c_str(), 0, &error);
    return U_SUCCESS(error) && canonical ? canonical : std::string();
}

std::string CharacterConverter::RegisteredName(const std::string& canonicalName) {
    for (const char* standard : {"MIME", "IANA"}) {
        UErrorCode error = U_ZERO_ERROR;
        const char* name = ucnv_getStandardName(canonicalName.c_str(), standard, &error);
        if (U_SUCCESS(error) && name)
            return name;
    }
    return canonicalName;
}

CharacterConverter::CharacterConverter(const std::string& name) {
    UErrorCode error = U_ZERO_ERROR;
    m_converter.reset(ucnv_open(name.c_str(), &error));
    if (U_SUCCESS(error))
        ucnv_setToUCallBack(m_converter.get(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &error);
    if (U_SUCCESS(error))
        ucnv_setFromUCallBack(m_converter.get(), UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                              &error);
    if (U_FAILURE(error))
        throw Error("No converter for " + name + ": " + u_errorName(error));
}

CharacterConverter::~CharacterConverter() = default;

bool CharacterConverter::HoldsAscii() {
    constexpr UConverterType Disguised[] = {UCNV_UTF7,  UCNV_IMAP_MAILBOX, UCNV_SCSU,
                                            UCNV_BOCU1, UCNV_HZ,           UCNV_EBCDIC_STATEFUL};
    const UConverterType type = ucnv_getType(m_converter.get());
    if (std::find(std::begin(Disguised), std::end(Disguised), type) != std::end(Disguised))
        return false;
    constexpr std::string_view Declaration =
        "<?xml version=\"1.0\" "
        "encoding='ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz-0123456789'\t\r\n?>";
    std::string read;
    char32_t character = 0;
    for (Start(Declaration); Next(character) && character < 0x80;)
        read += static_cast<char>(character);
    return read == Declaration;
}

void CharacterConverter::Start(std::string_view bytes) {
    ucnv_resetToUnicode(m_converter.get());
    m_next = bytes.data();
    m_end = bytes.data() + bytes.size();
    m_failed = false;
}

bool CharacterConverter::Next(char32_t& character) {
    m_failed = false;
    if (m_next == m_end)
        return false;
    const char* before = m_next;
    UErrorCode error = U_ZERO_ERROR;
    const UChar32 next = ucnv_getNextUChar(m_converter.get(), &m_next, m_end, &error);
    m_failed = U_FAILURE(error) && error != U_INDEX_OUTOFBOUNDS_ERROR;
    if (m_failed && m_next == before)
        ++m_next;
    character = static_cast<char32_t>(next);
    return U_SUCCESS(error);
}

std::optional<std::string> CharacterConverter::Write(std::string_view utf8) {
    constexpr std::size_t PieceSize = 4096; // units of UTF-16
    ucnv_resetFromUnicode(m_converter.get());
    std::string bytes;
    std::u16string piece;
    do {
        piece.clear();
        while (!utf8.empty() && piece.size() + 1 < PieceSize) {
            const std::optional<char32_t> character = platform::TakeUtf8(utf8);
            if (!character)
                return std::nullopt;
            if (*character > 0xFFFF) {
                piece += static_cast<char16_t>(0xD800 + ((*character - 0x10000) >> 10));
                piece += static_cast<char16_t>(0xDC00 + ((*character - 0x10000) & 0x3FF));
            } else {
                piece += static_cast<char16_t>(*character);
            }
        }
        if (!Append(piece, utf8.empty(), bytes))
            return std::nullopt;
    } while (!utf8.empty());
    return bytes;
}

bool CharacterConverter::Append(std::u16string_view piece, bool isLast, std::string& bytes) {
    std::array<char, 4096> room;
    const char16_t* source = piece.data();
    UErrorCode error = U_ZERO_ERROR;
    do {
        error = U_ZERO_ERROR;
        char* target = room.data();
        ucnv_fromUnicode(m_converter.get(), &target, room.data() + room.size(), &source,
                         piece.data() + piece.size(), nullptr, static_cast<UBool>(isLast), &error);
        bytes.append(room.data(), target);
    } while (error == U_BUFFER_OVERFLOW_ERROR);
    return U_SUCCESS(error);
}

} // namespace korvel::internal
