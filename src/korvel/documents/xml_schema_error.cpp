#include "korvel/documents/xml_schema_error.h"

namespace korvel {

XmlSchemaError::XmlSchemaError(const XmlReason& details)
    : Error("The given XML-Stream is not a valid schema (look at KorvelXML-Schemata) !"), m_details(details) {
}

} // namespace korvel
