#include "platform/code_page.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace korvel::platform {
namespace {

// The characters of 80 to 9F; every other byte stands for the character of its own number. Source: the
// Unicode Consortium's mapping table CP1252.TXT, with the platform's best fit for the five bytes that it
// leaves undefined.
constexpr std::array<char16_t, 32> upperControls{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
constexpr unsigned firstUpperControl = 0x80;

bool IsUpperControl(char32_t number) {
    return number >= firstUpperControl && number < firstUpperControl + upperControls.size();
}

void AppendCharacter(std::string& utf8, char32_t character) {
    const auto tail = [&](int shift) {
        utf8.push_back(static_cast<char>(0x80 | ((character >> shift) & 0x3F)));
    };
    if (character < 0x80) {
        utf8.push_back(static_cast<char>(character));
    } else if (character < 0x800) {
        utf8.push_back(static_cast<char>(0xC0 | (character >> 6)));
        tail(0);
    } else { // the page holds nothing beyond the basic plane
        utf8.push_back(static_cast<char>(0xE0 | (character >> 12)));
        tail(6);
        tail(0);
    }
}

/// One row of the Unicode Standard's table of well-formed UTF-8 byte sequences: what may follow a first byte.
struct Sequence {
    std::uint8_t firstByte; ///< up to that of the next row
    std::uint8_t length;    ///< 0: nothing begins with this byte
    std::uint8_t lowestSecond = 0x80;
    std::uint8_t highestSecond = 0xBF;
};

constexpr std::array<Sequence, 11> sequences{{{0x00, 1},
                                              {0x80, 0},
                                              {0xC2, 2},
                                              {0xE0, 3, 0xA0, 0xBF},
                                              {0xE1, 3},
                                              {0xED, 3, 0x80, 0x9F},
                                              {0xEE, 3},
                                              {0xF0, 4, 0x90, 0xBF},
                                              {0xF1, 4},
                                              {0xF4, 4, 0x80, 0x8F},
                                              {0xF5, 0}}};

const Sequence& SequenceOf(std::uint8_t firstByte) {
    const auto after =
        std::upper_bound(sequences.begin(), sequences.end(), firstByte,
                         [](std::uint8_t byte, const Sequence& row) { return byte < row.firstByte; });
    return *(after - 1);
}

/// Takes one character from the front, or the longest piece that could have begun one: then nothing is
/// answered.
std::optional<char32_t> TakeCharacter(std::string_view& utf8) {
    const auto byteAt = [&](std::size_t i) { return static_cast<std::uint8_t>(utf8[i]); };
    const Sequence& sequence = SequenceOf(byteAt(0));
    const std::size_t length = sequence.length;
    char32_t character = length == 1 ? byteAt(0) : byteAt(0) & (0x7Fu >> length);
    std::size_t taken = 1;
    for (; taken < length && taken < utf8.size(); ++taken) {
        const std::uint8_t byte = byteAt(taken);
        const bool second = taken == 1;
        if (byte < (second ? sequence.lowestSecond : 0x80) ||
            byte > (second ? sequence.highestSecond : 0xBF)) {
            break;
        }
        character = (character << 6) | (byte & 0x3F);
    }
    utf8.remove_prefix(taken);
    return taken == length ? std::optional(character) : std::nullopt;
}

} // namespace

char32_t ToUnicode(char byte) {
    const auto number = static_cast<unsigned char>(byte);
    return IsUpperControl(number) ? upperControls[number - firstUpperControl] : number;
}

std::optional<char> FromUnicode(char32_t character) {
    if (character <= 0xFF && !IsUpperControl(character)) {
        return static_cast<char>(character);
    }
    const auto found = std::find(upperControls.begin(), upperControls.end(), character);
    if (found == upperControls.end()) {
        return std::nullopt;
    }
    return static_cast<char>(firstUpperControl + static_cast<unsigned>(found - upperControls.begin()));
}

std::string ToUtf8(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size());
    for (const char byte : bytes) {
        AppendCharacter(utf8, ToUnicode(byte));
    }
    return utf8;
}

ConvertedText FromUtf8(std::string_view utf8) {
    ConvertedText result;
    result.text.reserve(utf8.size());
    while (!utf8.empty()) {
        const std::optional<char32_t> character = TakeCharacter(utf8);
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
        if ((number >= 'A' && number <= 'Z') || accentedCapital) {
            byte = static_cast<char>(number + 0x20);
        } else if (number == 0x8A || number == 0x8C || number == 0x8E) { // S and Z with caron, OE
            byte = static_cast<char>(number + 0x10);
        } else if (number == 0x9F) { // Y with diaeresis
            byte = '\xFF';
        }
    }
    return folded;
}

} // namespace korvel::platform
