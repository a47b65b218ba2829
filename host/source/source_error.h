#pragma once

#include "korvel/platform/error.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace korvel::inspector {

/// A place in a text as an editor counts it: lines and characters from 1.
struct SourcePlace {
    std::size_t line = 1;
    std::size_t position = 1;
};

/// The place of a byte in UTF-8 text. A line ends with LF, CR LF or CR. Costs a walk over the text before it.
SourcePlace PlaceOf(std::string_view text, std::size_t offset);

/// A piece of a document for a message: in quotes, and cut where it is long.
std::string Quoted(std::string_view piece);

/// What is wrong with a document, and where; the file is not known here.
class SourceError : public Error {
public:
    SourceError(std::string_view text, std::size_t offset, const std::string& reason)
        : SourceError(PlaceOf(text, offset), reason) {}
    SourceError(SourcePlace place, const std::string& reason) : Error(reason), m_place(place) {}

    SourcePlace Place() const { return m_place; }

private:
    SourcePlace m_place;
};

/// What the user is told: file, line and position where there is one, and the reason.
///
///     terrain.xml: line 17, position 4: the element 'Pnts' is closed by 'Pnt'
///     terrain.xml: no such file
class DocumentError : public Error {
public:
    DocumentError(const std::string& file, const std::string& reason);
    DocumentError(const std::string& file, const SourceError& error);

    /// The message in UTF-8, for a terminal. what() gives it in the code page of the library's texts.
    const std::string& Utf8Text() const { return m_text; }

private:
    std::string m_text;
};

} // namespace korvel::inspector
