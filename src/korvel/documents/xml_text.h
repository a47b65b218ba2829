#pragma once

#include "korvel/platform/export.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace korvel {

/// `text` without the white space of XML around it.
KORVEL_API std::string_view TrimXmlBlanks(std::string_view text);

/// The characters that a piece of a document stands for.
struct XmlCharacters {
    std::string utf8;
    bool complete = true; ///< false: cut off, after a whole character
};

/// The value of an attribute, of which `raw` is what is between its quotes. References are resolved; a
/// tab and an end of line become a blank each. At most `longest` bytes are returned.
///
///     DecodeXmlAttribute("A &lt; B\r\nC", 100)   -> "A < B C"
///     DecodeXmlAttribute("A &lt; B\r\nC", 4)     -> "A < ", not complete
///
/// `raw` has passed an XmlScanner: a reference that it would refuse becomes a zero byte.
KORVEL_API XmlCharacters DecodeXmlAttribute(std::string_view raw, std::size_t longest);

/// The text of a piece of content that holds no element. References are resolved, character sections are
/// taken as they are, comments and instructions left out, and each end of line becomes one LF.
///
///     DecodeXmlText("a<!-- b --><![CDATA[&]]>\r\n", 100)   -> "a&\n"
///
/// Throws XmlError, with a place in `raw`, for what XmlScanner refuses.
KORVEL_API XmlCharacters DecodeXmlText(std::string_view raw, std::size_t longest);

} // namespace korvel
