#pragma once

#include <string_view>

namespace korvel::internal {

/// The encoding that the XML declaration at the beginning of a document names: a part of the text, empty
/// where there is none. Every character before the end of the declaration is ASCII, so `text` may be the
/// bytes of any encoding that holds ASCII as it is.
///
///     DeclaredEncoding("<?xml version='1.0' encoding='UTF-8'?><a/>")   -> "UTF-8"
///
/// \throws XmlError for a declaration that is not as XML has it: "version", then perhaps "encoding" and
/// "standalone"
std::string_view DeclaredEncoding(std::string_view text);

/// True for what XML allows as the name of an encoding: a letter, then letters, digits, '.', '_', '-'.
bool IsEncodingName(std::string_view name);

} // namespace korvel::internal
