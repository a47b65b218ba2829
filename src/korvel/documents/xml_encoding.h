#pragma once

#include "korvel/platform/export.h"

#include <string>

namespace korvel {

/// How a document's characters are written as bytes.
enum class XmlEncoding { Utf8, Utf16LittleEndian, Utf16BigEndian, Latin1, Windows1252 };

/// A document as UTF-8, without byte order mark, and how its file holds it. The encodings can be turned back
/// byte by byte, so that a place in `text` gives the place in the file.
struct DecodedXml {
    std::string text;
    XmlEncoding encoding = XmlEncoding::Utf8;
    bool hasByteOrderMark = false;
};

/// Reads the bytes of a file as its byte order mark says, else as its XML declaration says; with neither they
/// are UTF-8.
///
///     DecodeXml("\xEF\xBB\xBF<a/>")                                       -> "<a/>", UTF-8 with mark
///     DecodeXml("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE4</a>") -> "...<a>ä</a>", Latin1
///
/// Throws XmlError, with its place, for a text that does not begin with '<', a declared encoding that is not
/// known or that the bytes are not in, and characters that XML does not allow. Takes memory for the text once
/// more than the bytes; none for UTF-8.
KORVEL_API DecodedXml DecodeXml(std::string bytes);

} // namespace korvel
