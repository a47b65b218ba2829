#include "source/document_error.h"

#include "korvel/platform/code_page.h"
#include "texts/messages.h"

namespace korvel::inspector {

std::string SayOfDocument(const XmlError& error) {
    const std::string text = SayWithPlace(error);
    return error.GetCause() == XmlError::Cause::Encoding
               ? Say({"%1; --encoding NAME reads the file in another encoding", {text}})
               : text;
}

DocumentError::DocumentError(const std::string& text) : Error(platform::FromUtf8(text).text), m_text(text) {}

DocumentError::DocumentError(const std::string& file, const XmlReason& reason)
    : DocumentError(file + ": " + Say(reason)) {}

DocumentError::DocumentError(const std::string& file, const XmlError& error)
    : DocumentError(file + ": " + SayOfDocument(error)) {}

} // namespace korvel::inspector
