#pragma once

#include "korvel/documents/xml_error.h"
#include "korvel/platform/export.h"

namespace korvel {

/// A well-formed document in which something required is missing or cannot be read. what() is one text for
/// all of them, which hosts know; the details say what it is this time.
///
///     catch (const XmlSchemaError& error) {
///         error.Details().Text();   // "the element 'DateFormat' is missing in 'FORMATS'"
///     }
class KORVEL_API XmlSchemaError : public Error {
public:
    explicit XmlSchemaError(const XmlReason& details);

    const XmlReason& Details() const { return m_details; }

private:
    XmlReason m_details;
};

} // namespace korvel
