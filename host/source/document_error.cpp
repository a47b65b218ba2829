#include "source/document_error.h"

#include "korvel/platform/code_page.h"

namespace korvel::inspector {
namespace {

std::string AtPlace(const XmlError& error) {
    const bool isEncoding = error.GetCause() == XmlError::Cause::Encoding;
    return "line " + std::to_string(error.Place().line) + ", position " +
           std::to_string(error.Place().position) + ": " + error.Reason() +
           (isEncoding ? "; --encoding NAME reads the file in another encoding" : "");
}

} // namespace

DocumentError::DocumentError(const std::string& file, const std::string& reason)
    : Error(platform::FromUtf8(file + ": " + reason).text), m_text(file + ": " + reason) {}

DocumentError::DocumentError(const std::string& file, const XmlError& error)
    : DocumentError(file, AtPlace(error)) {}

} // namespace korvel::inspector
