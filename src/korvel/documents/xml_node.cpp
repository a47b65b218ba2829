#include "korvel/documents/xml_node.h"

#include <array>
#include <charconv>
#include <cstdio>

namespace korvel {

namespace {

constexpr std::string_view CharactersOfMarkup = " \"&'<>";

std::string_view EscapeOf(char byte) {
    switch (byte) {
    case '\n':
        return "&#xD;";
    case '\r':
        return "&#xA;";
    case '"':
        return "&quot;";
    case '&':
        return "&amp;";
    case '\'':
        return "&apos;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    default:
        return {};
    }
}

void AppendEscaped(std::string& text, char byte) {
    const auto number = static_cast<unsigned char>(byte);
    if (const std::string_view escape = EscapeOf(byte); !escape.empty()) {
        text += escape;
    } else if (number > 127) {
        text += static_cast<char>((number >> 6) | 0xC0);
        text += static_cast<char>((number & 0x3F) | 0x80);
    } else {
        text += byte;
    }
}

std::string RefusalText(char refused) {
    if (refused == 0)
        return "The name of an XML node is empty";
    return std::string("The name of an XML node holds the character '") + refused + "'";
}

} // namespace

std::string EscapeXmlText(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char byte : text)
        AppendEscaped(escaped, byte);
    return escaped;
}

void CXmlAttributeSet::Set(const std::string& name, std::uint64_t value) {
    Set(name, std::to_string(value));
}

void CXmlAttributeSet::Set(const std::string& name, std::int32_t value) {
    Set(name, std::to_string(value));
}

void CXmlAttributeSet::Set(const std::string& name, std::int64_t value) {
    Set(name, std::to_string(value));
}

void CXmlAttributeSet::Set(const std::string& name, double value) {
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    Set(name, std::string(digits.data(), end));
}

void CXmlAttributeSet::Set(const std::string& name, std::uint32_t value) {
    Set(name, std::to_string(value));
}

void CXmlAttributeSet::Set(const std::string& name, std::chrono::year_month_day value) {
    std::array<char, 64> date;
    std::snprintf(date.data(), date.size(), "%04d-%02u-%02u", static_cast<int>(value.year()),
                  static_cast<unsigned>(value.month()), static_cast<unsigned>(value.day()));
    Set(name, std::string(date.data()));
}

void CXmlAttributeSet::Set(const std::string& name, unsigned char value) {
    Set(name, std::to_string(value));
}

void CXmlAttributeSet::Set(const std::string& name, const std::string& value) {
    CXmlNodeBase::CheckName(name);
    m_values.insert_or_assign(name, value);
}

CXmlNodeBase::CXmlNodeException::CXmlNodeException(char refused)
    : Error(RefusalText(refused)), m_character(refused) {}

void CXmlNodeBase::CheckName(std::string_view name) {
    if (name.empty())
        throw CXmlNodeException(0);
    const std::size_t refused = name.find_first_of(CharactersOfMarkup);
    if (refused != std::string_view::npos)
        throw CXmlNodeException(name[refused]);
}

CXmlNodeBase::CXmlNodeBase(std::ostream& stream, std::string name)
    : m_name(std::move(name)), m_stream(stream) {
    CheckName(m_name);
}

CXmlNodeBase::CXmlNodeBase(const CXmlNodeBase& parent, std::string name)
    : CXmlNodeBase(parent.m_stream, std::move(name)) {}

CXmlNodeBase::~CXmlNodeBase() {
    if (!m_started)
        return;
    try {
        m_stream << "</" << m_name << ">\n";
    } catch (...) {
        // A stream that throws has recorded its failure; a destructor must not pass it on.
    }
}

void CXmlNodeBase::WriteOpeningTag() {
    m_stream << '<' << m_name;
    for (const auto& [name, value] : m_attributes.GetValues())
        m_stream << ' ' << name << "=\"" << EscapeXmlText(value) << '"';
    m_stream << '>' << (m_text.empty() ? "\n" : m_text);
    m_started = true;
}

void CXmlNodeBase::CopyAttributes(const CXmlAttributeSet& attributes) {
    for (const auto& [name, value] : attributes.GetValues())
        m_attributes.Set(name, value);
}

} // namespace korvel
