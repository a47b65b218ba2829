#include "korvel/platform/utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace korvel::platform {
namespace {

// One row of the Unicode Standard's table of well-formed UTF-8 byte sequences: what may follow a first byte.
struct Sequence {
    std::uint8_t firstByte; // up to that of the next row
    std::uint8_t length;    // 0: nothing begins with this byte
    std::uint8_t lowestSecond = 0x80;
    std::uint8_t highestSecond = 0xBF;
};

constexpr std::array<Sequence, 11> Sequences{{{0x00, 1},
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
        std::upper_bound(Sequences.begin(), Sequences.end(), firstByte,
                         [](std::uint8_t byte, const Sequence& row) { return byte < row.firstByte; });
    return *(after - 1);
}

} // namespace

void AppendUtf8(std::string& utf8, char32_t character) {
    const auto tail = [&](int shift) {
        utf8.push_back(static_cast<char>(0x80 | ((character >> shift) & 0x3F)));
    };
    if (character < 0x80) {
        utf8.push_back(static_cast<char>(character));
    } else if (character < 0x800) {
        utf8.push_back(static_cast<char>(0xC0 | (character >> 6)));
        tail(0);
    } else if (character < 0x10000) {
        utf8.push_back(static_cast<char>(0xE0 | (character >> 12)));
        tail(6);
        tail(0);
    } else {
        utf8.push_back(static_cast<char>(0xF0 | (character >> 18)));
        tail(12);
        tail(6);
        tail(0);
    }
}

std::optional<char32_t> TakeUtf8(std::string_view& utf8) {
    const auto byteAt = [&](std::size_t i) { return static_cast<std::uint8_t>(utf8[i]); };
    const Sequence& sequence = SequenceOf(byteAt(0));
    const std::size_t length = sequence.length;
    char32_t character = length == 1 ? byteAt(0) : byteAt(0) & (0x7Fu >> length);
    std::size_t taken = 1;
    for (; taken < length && taken < utf8.size(); ++taken) {
        const std::uint8_t byte = byteAt(taken);
        const bool second = taken == 1;
        if (byte < (second ? sequence.lowestSecond : 0x80) || byte > (second ? sequence.highestSecond : 0xBF))
            break;
        character = (character << 6) | (byte & 0x3F);
    }
    utf8.remove_prefix(taken);
    return taken == length ? std::optional(character) : std::nullopt;
}

std::string_view CutUtf8(std::string_view utf8, std::size_t longest) {
    if (utf8.size() <= longest)
        return utf8;
    while (longest > 0 && ContinuesUtf8(utf8[longest]))
        --longest;
    return utf8.substr(0, longest);
}

} // namespace korvel::platform
