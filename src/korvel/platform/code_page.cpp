#include "korvel/platform/code_page.h"

#include "korvel/platform/utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>

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

bool IsUpperControl(char32_t number) {
    return number >= FirstUpperControl && number < FirstUpperControl + UpperControls.size();
}

} // namespace

char32_t ToUnicode(char byte) {
    const auto number = static_cast<unsigned char>(byte);
    return IsUpperControl(number) ? UpperControls[number - FirstUpperControl] : number;
}

std::optional<char> FromUnicode(char32_t character) {
    if (character <= 0xFF && !IsUpperControl(character))
        return static_cast<char>(character);
    const auto found = std::find(UpperControls.begin(), UpperControls.end(), character);
    if (found == UpperControls.end())
        return std::nullopt;
    return static_cast<char>(FirstUpperControl + static_cast<unsigned>(found - UpperControls.begin()));
}

std::string ToUtf8(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size());
    for (const char byte : bytes)
        AppendUtf8(utf8, ToUnicode(byte));
    return utf8;
}

ConvertedText FromUtf8(std::string_view utf8) {
    ConvertedText result;
    result.text.reserve(utf8.size());
    while (!utf8.empty()) {
        const std::optional<char32_t> character = TakeUtf8(utf8);
        const std::optional<char> byte = character ? FromUnicode(*character) : std::nullopt;
        result.text.push_back(byte.value_or('?'));
        result.exact = result.exact && byte.has_value();
    }
    return result;
}

std::string FoldCase(std::string_view bytes) {
    std::string folded(bytes);
    for (char& byte : folded) {
        const auto number = static_cast<unsigned char>(byte);
        const bool accentedCapital =
            number >= 0xC0 && number <= 0xDE && number != 0xD7; // D7 is a multiplication sign
        if ((number >= 'A' && number <= 'Z') || accentedCapital)
            byte = static_cast<char>(number + 0x20);
        else if (number == 0x8A || number == 0x8C || number == 0x8E) // S and Z with caron, OE
            byte = static_cast<char>(number + 0x10);
        else if (number == 0x9F) // Y with diaeresis
            byte = '\xFF';
    }
    return folded;
}

} // namespace korvel::platform
