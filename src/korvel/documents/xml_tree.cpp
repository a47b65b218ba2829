#include "korvel/documents/xml_tree.h"

#include "korvel/documents/xml_file_error.h"
#include "korvel/documents/xml_parser.h"
#include "korvel/documents/xml_schema_error.h"
#include "korvel/documents/xml_text.h"
#include "korvel/platform/code_page.h"
#include "korvel/platform/file_error.h"
#include "korvel/platform/utf8.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>
#include <unordered_set>

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

// An element whose end has not been read, and the names that were in it so far.
struct OpenElement {
    XmlElement element;
    std::unordered_set<std::string_view> names;
};

class TreeReader {
public:
    TreeReader(const DecodedXml& file, const std::function<bool(std::string_view)>& holdsText)
        : m_parser(file.text, file.fault), m_holdsText(holdsText) {}

    XmlElement Read() {
        m_open.emplace_back(); // the document, whose child is the root
        for (XmlParser::Piece piece; (piece = m_parser.Next()) != XmlParser::Piece::Finished;)
            if (piece == XmlParser::Piece::StartTag)
                Open();
            else if (piece == XmlParser::Piece::Text)
                m_open.back().element.text += DecodeXmlText(m_parser.Raw(), std::string::npos).utf8;
            else
                Close();
        return std::move(m_open.back().element.children.front());
    }

private:
    void Open() {
        OpenElement& parent = m_open.back();
        const auto fail = [&](const char* sentence) {
            m_parser.Fail(
                m_parser.Offset(),
                {sentence, {XmlError::Quoted(m_parser.Name()), XmlError::Quoted(parent.element.name)}});
        };
        if (m_holdsText(parent.element.name))
            fail("the element %1 is inside %2, which holds a text");
        if (!parent.names.insert(m_parser.Name()).second)
            fail("the element %1 is here twice");
        m_open.emplace_back().element.name = m_parser.Name();
    }

    void Close() {
        XmlElement element = std::move(m_open.back().element);
        m_open.pop_back();
        m_open.back().element.children.push_back(std::move(element));
    }

    XmlParser m_parser;
    const std::function<bool(std::string_view)>& m_holdsText;
    std::vector<OpenElement> m_open;
};

} // namespace

const XmlElement& XmlElement::Child(std::string_view childName) const {
    const auto found = std::find_if(children.begin(), children.end(),
                                    [&](const XmlElement& child) { return child.name == childName; });
    if (found == children.end())
        throw XmlSchemaError(
            {"the element %1 is missing in %2", {XmlError::Quoted(childName), XmlError::Quoted(name)}});
    return *found;
}

XmlElement ReadXmlFile(const std::string& path, const std::function<bool(std::string_view)>& holdsText) {
    std::string bytes = ReadFile(path);
    try {
        const DecodedXml file = DecodeXml(std::move(bytes));
        return TreeReader(file, holdsText).Read();
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
