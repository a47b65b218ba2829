#include "korvel/dialogs/code_list_text.h"

#include <algorithm>

namespace korvel {
namespace {

constexpr char PairEnd = ';';
constexpr char CodeEnd = ':';

CodePair ParsePair(std::string_view piece) {
    const std::size_t colon = piece.find(CodeEnd);
    if (colon == std::string_view::npos)
        return {"", std::string(piece)};
    return {std::string(piece.substr(0, colon)), std::string(piece.substr(colon + 1))};
}

bool Holds(std::string_view text, char character) {
    return text.find(character) != std::string_view::npos;
}

} // namespace

std::vector<CodePair> ParseCodeList(std::string_view text) {
    std::vector<CodePair> pairs;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(PairEnd), text.size());
        if (end > 0)
            pairs.push_back(ParsePair(text.substr(0, end)));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return pairs;
}

std::string WriteCodeList(std::span<const CodePair> pairs) {
    std::string text;
    for (const CodePair& pair : pairs) {
        if (&pair != &pairs.front())
            text += PairEnd;
        text += pair.code;
        text += CodeEnd;
        text += pair.value;
    }
    return text;
}

bool CanHoldPair(const CodePair& pair) {
    return !Holds(pair.code, PairEnd) && !Holds(pair.code, CodeEnd) && !Holds(pair.value, PairEnd);
}

} // namespace korvel
