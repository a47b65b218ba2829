#include "korvel/documents/xml_file_error.h"

#include "korvel/platform/code_page.h"

namespace korvel {
namespace {

std::string TextOf(const std::string& file, const XmlError& problem) {
    const XmlPlace place = problem.Place();
    return platform::FromUtf8(file + "(line " + std::to_string(place.line) + ", position " +
                              std::to_string(place.position) + ": " + problem.Reason() + ")")
        .text;
}

} // namespace

XmlFileError::XmlFileError(const std::string& file, const XmlError& problem)
    : Error(TextOf(file, problem)), m_problem(problem) {}

} // namespace korvel
