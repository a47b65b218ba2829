#pragma once

#include "korvel/platform/export.h"

#include <optional>
#include <string>
#include <string_view>

namespace korvel::platform {

/// Code page 1252, which all text inside the library is in, to and from Unicode, which begins at the edges
/// (display, files, host).
///
///     ToUtf8("12 m\xB2")            -> "12 m²"
///     FromUtf8("12 m²")             -> {"12 m\xB2", exact}
///     FromUtf8("Łódź")              -> {"?\xF3d?", not exact}
///
/// Every byte has a character: 81, 8D, 8F, 90 and 9D, to which the page gives no letter, are the control
/// characters of the same number. So bytes -> UTF-8 -> bytes never changes a text.

/// What became of a Unicode text.
struct ConvertedText {
    std::string text;
    bool exact = true; ///< false: at least one character became "?"
};

KORVEL_API std::string ToUtf8(std::string_view bytes);

/// A character outside the page, and each piece that is not valid UTF-8, becomes one "?".
KORVEL_API ConvertedText FromUtf8(std::string_view utf8);

KORVEL_API char32_t ToUnicode(char byte);

/// Nothing when the page does not hold the character.
KORVEL_API std::optional<char> FromUnicode(char32_t character);

/// Small letters for capital ones, accented ones included; two texts that differ only in case become equal.
KORVEL_API std::string FoldCase(std::string_view bytes);

} // namespace korvel::platform
