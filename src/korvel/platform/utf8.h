#pragma once

#include "korvel/platform/export.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace korvel::platform {

/// Single characters of UTF-8.

/// `character` is at most 10FFFF and no half of a pair.
KORVEL_API void AppendUtf8(std::string& utf8, char32_t character);

/// Takes one character from the front of a text that is not empty, or the longest piece that could have begun
/// one: then it returns nothing.
KORVEL_API std::optional<char32_t> TakeUtf8(std::string_view& utf8);

/// True for the bytes of a character but the first.
inline bool ContinuesUtf8(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

/// The beginning of a text, whole characters of at most `longest` bytes.
KORVEL_API std::string_view CutUtf8(std::string_view utf8, std::size_t longest);

} // namespace korvel::platform
