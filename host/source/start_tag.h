#pragma once

#include "source/xml_escaping.h"

#include <string>
#include <string_view>
#include <vector>

namespace korvel::inspector {

/// Edits of a start tag as text. Each function returns the new tag and leaves all else as it is written:
/// order, quotes, blanks, references.
///
///     SetAttribute("<a b='1'  c = '2'/>", "b", "x", {})     -> "<a b='x'  c = '2'/>"
///     AddAttribute("<a b='1'  c = '2'/>", "d", "x", {})     -> "<a b='1'  c = '2'  d = 'x'/>"
///     RemoveAttribute("<a b='1'  c = '2'/>", "c")           -> "<a b='1'/>"
///     RenameAttribute("<a b='1'  c = '2'/>", "c", "d")      -> "<a b='1'  d = '2'/>"
///
/// `tag` is well-formed and `name` an attribute in it; for AddAttribute it is none. Values are UTF-8; what
/// EscapeAttribute refuses is thrown.
std::string SetAttribute(std::string_view tag, std::string_view name, std::string_view value,
                         const CharacterTest& isHeld);
/// After the last attribute, with its blanks and quotes.
std::string AddAttribute(std::string_view tag, std::string_view name, std::string_view value,
                         const CharacterTest& isHeld);
/// With the blanks before it.
std::string RemoveAttribute(std::string_view tag, std::string_view name);
std::string RenameAttribute(std::string_view tag, std::string_view name, std::string_view newName);

/// The names of the attributes that only one of two tags has, or whose values are written differently.
std::vector<std::string> ChangedAttributes(std::string_view before, std::string_view after);

} // namespace korvel::inspector
