#include "korvel/events/text_search.h"

#include "korvel/platform/code_page.h"

#include <algorithm>
#include <array>

namespace korvel::internal {

namespace {

// Small letters of single bytes; what begins a sequence of bytes is marked, as its letter is not known by a byte.
struct Bytes {
    Bytes() {
        for (std::size_t byte = 0; byte < folded.size(); ++byte)
            folded[byte] = platform::FoldCase(std::string(1, static_cast<char>(byte)))[0];
        for (const unsigned char lead : {0x81, 0x8D, 0x8F, 0x9D})
            isLead[lead] = true;
    }

    std::array<char, 256> folded{};
    std::array<bool, 256> isLead{};
};

const Bytes& TableOfBytes() {
    static const Bytes bytes;
    return bytes;
}

std::size_t Index(char byte) {
    return static_cast<unsigned char>(byte);
}

// A letter of one byte may also be a part of a sequence.
bool HoldsWholeCharacters(std::string_view text, std::string_view wanted) {
    for (std::size_t at = text.find(wanted); at != std::string_view::npos; at = text.find(wanted, at + 1))
        if (platform::CharacterBorder(text, at) == at &&
            platform::CharacterBorder(text, at + wanted.size()) == at + wanted.size())
            return true;
    return false;
}

} // namespace

bool HoldsFolded(std::string_view text, std::string_view folded) {
    const Bytes& bytes = TableOfBytes();
    const auto isLead = [&](char byte) { return bytes.isLead[Index(byte)]; };
    if (std::any_of(text.begin(), text.end(), isLead))
        return HoldsWholeCharacters(platform::FoldCase(text), folded);
    const auto isSame = [&](char byte, char wanted) { return bytes.folded[Index(byte)] == wanted; };
    return std::search(text.begin(), text.end(), folded.begin(), folded.end(), isSame) != text.end();
}

} // namespace korvel::internal
