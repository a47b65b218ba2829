#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace korvel::inspector {

/// Whether the encoding of a file holds a character; empty: every one.
using CharacterTest = std::function<bool(char32_t)>;

/// A text (UTF-8) as it is written between the quotes of an attribute. What the encoding lacks, and tabs and
/// line ends, become character references; so reading gives the same text back.
///
///     EscapeAttribute("a<\"b\"", '"', {})   -> "a&lt;&quot;b&quot;"
///     EscapeAttribute("a<\"b\"", '\'', {})  -> "a&lt;\"b\""
///
/// Throws Error for a character that XML does not allow.
std::string EscapeAttribute(std::string_view utf8, char quote, const CharacterTest& isHeld);

/// The same between two tags, where line feeds stay.
std::string EscapeText(std::string_view utf8, const CharacterTest& isHeld);

/// Throws Error for what is no name of an attribute: one of XML, at most with one prefix, in characters that
/// the encoding holds. A name that declares a namespace is refused as well.
void CheckAttributeName(std::string_view name, const CharacterTest& isHeld);

} // namespace korvel::inspector
