#include "korvel/documents/xml_reader.h"

#include "korvel/platform/code_page.h"
#include "korvel/platform/error.h"

#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <system_error>

namespace korvel::internal {

namespace {

struct Position {
    std::size_t line = 0;
    std::size_t character = 0;
};

[[noreturn]] void ThrowReadError(const std::string& path, Position position, const std::string& reason) {
    const std::string place =
        "(line " + std::to_string(position.line) + ", position " + std::to_string(position.character) + ": ";
    throw Error(platform::FromUtf8(path + place + reason + ")").text);
}

std::string ReadFile(const std::string& path) {
    // Anything but a file may never end, or wait for another program.
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (std::filesystem::is_directory(status))
        error = std::make_error_code(std::errc::is_a_directory);
    else if (!error && !std::filesystem::is_regular_file(status))
        error = std::make_error_code(std::errc::invalid_argument);
    if (error)
        ThrowReadError(path, {}, error.message());
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    if (!file || (file.peek() != std::ifstream::traits_type::eof() && !(content << file.rdbuf())))
        ThrowReadError(path, {}, std::generic_category().message(errno));
    return std::move(content).str();
}

// How the bytes of a file make up its characters, one code unit at a time.
struct CodeUnits {
    std::size_t size;
    bool bigEndian;

    std::uint32_t At(std::string_view bytes, std::size_t offset) const {
        std::uint32_t unit = 0;
        for (std::size_t i = 0; i < size; ++i) {
            const std::size_t place = bigEndian ? i : size - 1 - i;
            unit = unit << 8 | static_cast<unsigned char>(bytes[offset + place]);
        }
        return unit;
    }
};

CodeUnits CodeUnitsOf(pugi::xml_encoding encoding) {
    switch (encoding) {
    case pugi::encoding_utf16_le:
        return {2, false};
    case pugi::encoding_utf16_be:
        return {2, true};
    case pugi::encoding_utf32_le:
        return {4, false};
    case pugi::encoding_utf32_be:
        return {4, true};
    default:
        return {1, true};
    }
}

// The bytes of UTF-8 that one code unit becomes; half a surrogate pair becomes half of four.
std::size_t Utf8SizeOf(std::uint32_t unit, pugi::xml_encoding encoding) {
    if (encoding == pugi::encoding_utf8 || unit < 0x80)
        return 1;
    if (unit < 0x800 || (unit >= 0xD800 && unit < 0xE000))
        return 2;
    return unit < 0x10000 ? 3 : 4;
}

// The place of an offset that counts the bytes of the file's text in UTF-8.
Position PositionAt(std::string_view bytes, pugi::xml_encoding encoding, std::size_t utf8Offset) {
    const CodeUnits units = CodeUnitsOf(encoding);
    Position position{1, 1};
    std::size_t offset = 0;
    for (std::size_t at = 0; at + units.size <= bytes.size() && offset < utf8Offset; at += units.size) {
        const std::uint32_t unit = units.At(bytes, at);
        offset += Utf8SizeOf(unit, encoding);
        const bool continues = encoding == pugi::encoding_utf8 && (unit & 0xC0) == 0x80;
        if (unit == '\n')
            position = {position.line + 1, 1};
        else if (!continues)
            ++position.character;
    }
    return position;
}

// The bytes whose numbers are the characters of a text in UTF-8.
std::string BytesOfCharacters(std::string_view utf8) {
    std::string bytes;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto first = static_cast<unsigned char>(utf8[i]);
        if (first < 0x80) {
            bytes += utf8[i];
            continue;
        }
        const auto second = i + 1 < utf8.size() ? static_cast<unsigned char>(utf8[++i]) : 0U;
        const bool isByte = (first == 0xC2 || first == 0xC3) && (second & 0xC0) == 0x80;
        if (!isByte)
            ThrowSchemaError();
        bytes += static_cast<char>((first & 0x03) << 6 | (second & 0x3F));
    }
    return bytes;
}

} // namespace

void ReadXmlFile(const std::string& path, pugi::xml_document& document) {
    const std::string content = ReadFile(path);
    const pugi::xml_parse_result result = document.load_buffer(
        content.data(), content.size(), pugi::parse_default | pugi::parse_ws_pcdata_single);
    if (!result) {
        const auto offset = static_cast<std::size_t>(result.offset);
        ThrowReadError(path, PositionAt(content, result.encoding, offset), result.description());
    }
    // The parser takes a zero byte for the end of the file and reads nothing after it.
    const std::size_t zero = CodeUnitsOf(result.encoding).size == 1 ? content.find('\0') : std::string::npos;
    if (zero != std::string::npos)
        ThrowReadError(path, PositionAt(content, result.encoding, zero), "Zero byte");
}

void ThrowSchemaError() {
    throw Error("The given XML-Stream is not a valid schema (look at KorvelXML-Schemata) !");
}

pugi::xml_node RequireChild(const pugi::xml_node& parent, const char* name) {
    const pugi::xml_node child = parent.child(name);
    if (!child)
        ThrowSchemaError();
    return child;
}

std::string RequireText(const pugi::xml_node& parent, const char* name) {
    std::string text;
    for (const pugi::xml_node& part : RequireChild(parent, name).children())
        if (part.type() == pugi::node_pcdata || part.type() == pugi::node_cdata)
            text += part.value();
    return text == "\n" ? std::string() : BytesOfCharacters(text);
}

} // namespace korvel::internal
