#include "korvel/documents/xml_tree.h"

#include "korvel/documents/xml_file_error.h"
#include "korvel/documents/xml_tree_reader.h"
#include "korvel/platform/code_page.h"
#include "korvel/platform/file_error.h"
#include "korvel/platform/utf8.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

namespace korvel::internal {

namespace {

std::string ReadFile(const std::string& path) {
    // Anything but a file may never end, or wait for another program.
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (std::filesystem::is_directory(status))
        error = std::make_error_code(std::errc::is_a_directory);
    else if (!error && !std::filesystem::is_regular_file(status))
        error = std::make_error_code(std::errc::invalid_argument);
    if (error)
        throw UnreadableFile(path, error.value());
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    const bool isEmpty = file && file.peek() == std::ifstream::traits_type::eof() && !file.bad();
    if (!isEmpty && (!file || !(content << file.rdbuf())))
        throw UnreadableFile(path, errno);
    return std::move(content).str();
}

} // namespace

XmlElement ReadXmlFile(const std::string& path, const std::function<bool(std::string_view)>& holdsText) {
    std::string bytes = ReadFile(path);
    try {
        const DecodedXml file = DecodeXml(std::move(bytes));
        return XmlTreeReader(file, holdsText).Read();
    } catch (const XmlError& error) {
        throw XmlFileError(path, error);
    }
}

std::string BytesOfXmlText(std::string_view utf8) {
    std::string bytes;
    if (utf8 == "\n")
        return bytes;
    while (!utf8.empty()) {
        const std::string_view before = utf8;
        const char32_t character = platform::TakeUtf8(utf8).value_or(U'?');
        if (character <= 0xFF)
            bytes.push_back(static_cast<char>(character));
        else
            bytes += platform::FromUtf8(before.substr(0, before.size() - utf8.size())).text;
    }
    return bytes;
}

} // namespace korvel::internal
