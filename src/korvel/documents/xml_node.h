#pragma once

#include "korvel/platform/error.h"
#include "korvel/platform/export.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <string_view>

namespace korvel {

/// A text as it is written between the tags of an XML file or in an attribute. Each byte is the Unicode
/// character of the same number, in UTF-8.
///
/// A line feed is written as "&#xD;" and a carriage return as "&#xA;", so that each comes back from a parser
/// as the other. Kept: files that exist are written so.
KORVEL_API std::string EscapeXmlText(std::string_view text);

/// The attributes of one element, in the order of their names.
///
/// Setting a name again replaces its value. Every setter throws CXmlNodeBase::CXmlNodeException for a name
/// that is empty or holds a character of markup, and changes nothing then.
class KORVEL_API CXmlAttributeSet {
public:
    using Values = std::map<std::string, std::string, std::less<>>;

    virtual ~CXmlAttributeSet() = default;
    virtual void Set(const std::string& name, std::uint64_t value);
    virtual void Set(const std::string& name, std::int32_t value);
    virtual void Set(const std::string& name, std::int64_t value);
    /// The shortest decimal text that reads back as the same double.
    virtual void Set(const std::string& name, double value);
    virtual void Set(const std::string& name, std::uint32_t value);
    /// Year, month and day, as in "2026-03-09".
    virtual void Set(const std::string& name, std::chrono::year_month_day value);
    /// As a number from 0 to 255.
    virtual void Set(const std::string& name, unsigned char value);
    virtual void Set(const std::string& name, const std::string& value);

    const Values& GetValues() const { return m_values; }

private:
    Values m_values;
};

/// An element of an XML file that is written in one forward pass: it is opened by WriteOpeningTag and closed
/// when the object dies, so the nesting of the objects is that of the file.
///
///     CXmlNode road(file, "Road");
///     road.GetAttributes().Set("length", 12.5);
///     road.WriteOpeningTag();
///     {
///         CXmlNode name(road, "Name");
///         name.SetText(EscapeXmlText("A & B"));
///         name.WriteOpeningTag();
///     }
///
/// writes
///
///     <Road length="12.5">
///     <Name>A &amp; B</Name>
///     </Road>
///
/// An element that was never opened writes nothing. The stream must outlive the node and is not tested: the
/// caller looks at its state. A tree of nodes belongs to one thread.
class KORVEL_API CXmlNodeBase {
public:
    /// Thrown for what is no name.
    class KORVEL_API CXmlNodeException : public Error {
    public:
        explicit CXmlNodeException(char refused);
        /// The character that was refused; 0 for an empty name.
        char GetCharacter() const { return m_character; }

    private:
        char m_character;
    };

    /// Throws CXmlNodeException for a name that is empty or holds a space or one of "&'<>.
    CXmlNodeBase(std::ostream& stream, std::string name);
    /// An element in another one, which must have been opened.
    CXmlNodeBase(const CXmlNodeBase& parent, std::string name);
    CXmlNodeBase(const CXmlNodeBase&) = delete;
    CXmlNodeBase& operator=(const CXmlNodeBase&) = delete;

    virtual ~CXmlNodeBase();
    /// Writes the tag with its attributes, and after it the text as it is or, without one, a line end.
    virtual void WriteOpeningTag();
    /// Copies the given attributes into those of this node; names that both have take the given value.
    virtual void CopyAttributes(const CXmlAttributeSet& attributes);

    /// What follows the opening tag, in its escaped form: see EscapeXmlText.
    void SetText(std::string text) { m_text = std::move(text); }
    CXmlAttributeSet& GetAttributes() { return m_attributes; }

    static void CheckName(std::string_view name);

private:
    std::string m_name;
    bool m_started = false;
    std::string m_text;
    std::ostream& m_stream;
    CXmlAttributeSet m_attributes;
};

class KORVEL_API CXmlNode : public CXmlNodeBase {
public:
    using CXmlNodeBase::CXmlNodeBase;
};

} // namespace korvel
