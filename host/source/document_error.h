#pragma once

#include "korvel/documents/xml_error.h"

#include <string>

namespace korvel::inspector {

/// A file that cannot be read: file, line and position where there is one, and the reason, in the language of
/// the process.
///
///     terrain.xml: line 17, position 4: the element 'Pnts' is closed by 'Pnt'
///     terrain.xml: no such file
class DocumentError : public Error {
public:
    DocumentError(const std::string& file, const XmlReason& reason);
    DocumentError(const std::string& file, const XmlError& error);

    /// The message in UTF-8, for a terminal. what() gives it in the code page of the library's texts.
    const std::string& Utf8Text() const { return m_text; }

private:
    DocumentError(const std::string& text);

    std::string m_text;
};

/// What is wrong with a document and where, in UTF-8 and in the language of the process, with advice where
/// there is some.
std::string SayOfDocument(const XmlError& error);

} // namespace korvel::inspector
