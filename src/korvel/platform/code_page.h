#pragma once

#include "korvel/platform/export.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace korvel::platform {

/// The bytes of every text inside the library, to and from Unicode, which begins at the edges (display,
/// files, host).
///
///     ToUtf8("12 m\xB2")            -> "12 m²"
///     FromUtf8("12 m²")             -> {"12 m\xB2", exact}
///     FromUtf8("Łódź")              -> {"\x81\xE2\xE1\xF3" "d\x81\xE3\xFA", exact}
///
/// A character that code page 1252 holds is its byte there; 81, 8D, 8F, 90 and 9D, to which the page gives no
/// letter, are the control characters of the same number. Any other character is a sequence, as in a
/// double-byte code page: a lead byte, then 5 bits a byte in E0..FF, highest first.
///
///     81 + 2 bytes   U+0100..U+04FF, minus 0x100
///     8D + 3 bytes   U+0080..U+7FFF, where no form above holds it
///     8F + 3 bytes   U+8000..U+FFFF, minus 0x8000
///     9D + 4 bytes   U+10000..U+10FFFF, minus 0x10000
///
/// Only the shortest form of a character that the page does not hold is a sequence; whatever else follows a
/// lead byte is read byte by byte. A byte 90 after a lead byte quotes: it is no character, and says that the
/// lead byte and the bytes E0..FF after it stand for themselves. Where 90s stand there as characters, one
/// more is put before them. So both ways round (bytes to UTF-8 to bytes, UTF-8 to bytes to UTF-8) no text
/// changes. No lead byte occurs within a sequence. Joining or cutting texts can make or break one, even
/// between characters.

/// What became of a Unicode text.
struct ConvertedText {
    std::string text;
    bool exact = true; ///< false: at least one piece was no valid UTF-8
};

KORVEL_API std::string ToUtf8(std::string_view text);

/// Each piece that is not valid UTF-8 becomes one "?".
KORVEL_API ConvertedText FromUtf8(std::string_view utf8);

/// The character of a byte that is read by itself.
KORVEL_API char32_t ToUnicode(char byte);

/// Nothing when the page does not hold the character.
KORVEL_API std::optional<char> FromUnicode(char32_t character);

/// The bytes of the longest sequence.
inline constexpr std::size_t LongestCharacter = 5;

/// One character of a text and the bytes that it takes, a quoting 90 included.
struct Character {
    char32_t code = 0;
    std::size_t length = 0;
};

/// The character that begins at `at`, which is a border between characters before the end of the text.
KORVEL_API Character CharacterAt(std::string_view text, std::size_t at);

/// The nearest border between characters that is not after `at`; the end of the text for whatever is beyond.
KORVEL_API std::size_t CharacterBorder(std::string_view text, std::size_t at);

/// The border after the character that holds `at`; the end of the text stays.
KORVEL_API std::size_t NextCharacter(std::string_view text, std::size_t at);

/// The border before the character that ends at `at` or holds it; 0 stays.
KORVEL_API std::size_t PreviousCharacter(std::string_view text, std::size_t at);

KORVEL_API std::size_t CountCharacters(std::string_view text);

/// The beginning of a text, whole characters of at most `longest` bytes. Where that ends after a lead byte
/// and its quoting 90, the two are read as two characters: "\x81\x90\xE2\xE1" cut to 3 bytes is U+0081 U+0090
/// U+00E2.
KORVEL_API std::string_view CutCharacters(std::string_view text, std::size_t longest);

/// A text to be told: whole, or its beginning and "..." where it has more than `longest` bytes or 30 lines.
KORVEL_API std::string Abbreviate(std::string_view text, std::size_t longest);

/// True when the characters of `text` begin with those of `beginning`.
KORVEL_API bool BeginsWith(std::string_view text, std::string_view beginning);

/// Small letters for capital ones, accented ones and those outside the page included: Unicode's simple case
/// folding, so two texts that differ only in case become equal. The exception is the micro sign (B5), which
/// is no letter here and stays apart from the Greek mu.
KORVEL_API std::string FoldCase(std::string_view text);

} // namespace korvel::platform
