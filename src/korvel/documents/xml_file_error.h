#pragma once

#include "korvel/documents/xml_error.h"
#include "korvel/platform/export.h"

#include <string>

namespace korvel {

/// A file that is wrong: the XmlError, and which file it is.
///
///     catch (const XmlFileError& error) {
///         error.what();                         // "formats.xml(line 3, position 7: a name is expected here)"
///         Translate(error.Problem().Details());
///     }
class KORVEL_API XmlFileError : public Error {
public:
    XmlFileError(const std::string& file, const XmlError& problem);

    const XmlError& Problem() const { return m_problem; }

private:
    XmlError m_problem;
};

} // namespace korvel
