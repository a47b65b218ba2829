#pragma once

#include "korvel/documents/xml_error.h"
#include "korvel/platform/export.h"

#include <optional>
#include <string>
#include <string_view>

namespace korvel {

/// Why the text of a document ends before its file does.
struct XmlFault {
    XmlReason reason;
    XmlError::Cause cause = XmlError::Cause::Encoding;
};

/// What is read in the place of bytes that are no character of their encoding.
enum class WrongBytes {
    End,     ///< nothing: the text ends there
    Replace, ///< U+FFFD for each piece
};

/// The first bytes that were replaced by U+FFFD: why, and the place of that in the text.
struct ReplacedBytes {
    XmlReason reason;
    std::size_t offset;
};

/// A document as UTF-8, without byte order mark, and how its file holds it.
struct DecodedXml {
    /// Ends before the first byte that is wrong and not replaced. A fault of the text itself is thus found
    /// first.
    std::string text;
    /// What is wrong after the text; nothing where the whole file was read. XmlParser throws it at that
    /// place.
    std::optional<XmlFault> fault;
    /// By its registered name where it has one: "UTF-8", "UTF-16BE", "windows-1252", "Shift_JIS".
    std::string encoding;
    bool hasByteOrderMark = false;
    std::optional<ReplacedBytes> replaced; ///< with WrongBytes::Replace only
};

/// Reads the bytes of a file as its byte order mark or the zeros of its first '<' say, else as `encoding`
/// says or, where that is empty, its XML declaration; with none of these they are UTF-8.
///
///     DecodeXml("\xEF\xBB\xBF<a/>")                                       -> "<a/>", "UTF-8" with mark
///     DecodeXml("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE4</a>") -> "...<a>ä</a>", "ISO-8859-1"
///
/// Known are UTF-8, UTF-16, UTF-32, and all that ICU's converters know and that begin with ASCII as it is:
/// neither EBCDIC nor UTF-7 and other forms in which ASCII may mean something else. In ISO-8859-1 and in
/// windows-1252 every byte is a character.
///
/// Throws XmlError, with its place, for a text that does not begin with '<', a declaration that is malformed,
/// or that names an encoding that is not known or that the bytes contradict. Takes memory for the text once
/// more than the bytes; none for UTF-8 without wrong bytes.
KORVEL_API DecodedXml DecodeXml(std::string bytes, std::string_view encoding = {},
                                WrongBytes wrongBytes = WrongBytes::End);

/// The bytes of a text in UTF-8, in an encoding that DecodedXml names. Nothing where the encoding lacks a
/// character of the text, or where the text is no UTF-8. UTF-8 itself is not checked. `hasByteOrderMark`
/// matters for the forms of Unicode only.
KORVEL_API std::optional<std::string> EncodeXml(std::string_view utf8, const std::string& encoding,
                                                bool hasByteOrderMark = false);

} // namespace korvel
