#pragma once

#include <string>

namespace korvel::inspector {

/// How a document's characters are written as bytes.
enum class TextEncoding { Utf8, Utf16LittleEndian, Utf16BigEndian, Latin1, Windows1252 };

/// A document as UTF-8, without byte order mark, and how its file has it. Every encoding can be turned back
/// byte by byte, so a place in `text` tells the place in the file.
struct DecodedDocument {
    std::string text;
    TextEncoding encoding = TextEncoding::Utf8;
    bool hasByteOrderMark = false;
};

/// Reads the bytes of a file as its mark, else as its XML declaration says; with neither they are UTF-8.
///
///     DecodeDocument("\xEF\xBB\xBF<a/>")                                      -> UTF-8 with mark
///     DecodeDocument("<?xml version='1.0' encoding='ISO-8859-1'?><a>\xE4</a>") -> "...<a>ä</a>"
///
/// Throws SourceError when the declaration names an encoding that the bytes are not in, or one that is not
/// known, and for characters that XML does not allow.
DecodedDocument DecodeDocument(std::string bytes);

} // namespace korvel::inspector
