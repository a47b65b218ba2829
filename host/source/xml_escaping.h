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

/// What is written in a file, changed so that it reads as `utf8`. What both begin and end with stays as it is
/// written: references, tabs and line ends. Throws as EscapeAttribute does.
///
///     RewriteAttribute("A &#66;\tC", "A B x", '"', {})              -> "A &#66;\tx"
///     RewriteText("A &#66;\r\nC\tD", "A B\nx\tD", "\r\n", {})     -> "A &#66;\r\nx\tD"
std::string RewriteAttribute(std::string_view raw, std::string_view utf8, char quote,
                             const CharacterTest& isHeld);
/// The same between two tags, without any tag, comment or section in `raw`. Line ends that are new are
/// written as `lineEnd`.
std::string RewriteText(std::string_view raw, std::string_view utf8, std::string_view lineEnd,
                        const CharacterTest& isHeld);

/// How the first line of a document ends: "\n", "\r\n" or "\r"; "\n" where it has only one.
std::string_view LineEndOf(std::string_view document);

/// Throws Error for what is no name of an attribute: one of XML, at most with one prefix, in characters that
/// the encoding holds. A name that declares a namespace is refused as well.
void CheckAttributeName(std::string_view name, const CharacterTest& isHeld);

} // namespace korvel::inspector
