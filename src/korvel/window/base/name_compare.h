#pragma once

#include <algorithm>
#include <string_view>

namespace korvel::internal {

inline char LowerLetter(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
}

/// Orders the names of classes and messages as the window model compares them: whatever their case.
struct NameLess {
    using is_transparent = void;
    bool operator()(std::string_view left, std::string_view right) const {
        return std::lexicographical_compare(
            left.begin(), left.end(), right.begin(), right.end(),
            [](char a, char b) { return LowerLetter(a) < LowerLetter(b); });
    }
};

inline bool IsSameName(std::string_view left, std::string_view right) {
    return !NameLess()(left, right) && !NameLess()(right, left);
}

} // namespace korvel::internal
