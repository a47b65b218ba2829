#pragma once

#include "korvel/documents/xml_error.h"

#include <string>
#include <string_view>

namespace korvel::inspector {

/// What the program says of a file, a setting or an option: an English sentence and the pieces in it.
using Message = XmlReason;

/// The message in the language of the process, in UTF-8; a sentence that nobody has translated stays English.
///
///     Say({"the element %1 is closed by %2", {"'a'", "'b'"}})   -> "das Element 'a' wird von 'b' geschlossen"
std::string Say(const Message& message);

/// A piece of a message that was typed, in quotes.
inline std::string InQuotes(std::string_view utf8) {
    return "'" + std::string(utf8) + "'";
}

/// A failure with its place, in UTF-8: "line 3, position 7: a name is expected here".
std::string SayWithPlace(const XmlError& error);

/// True where the process speaks German; English where no language is set yet.
bool SpeaksGerman();

} // namespace korvel::inspector
