#include "korvel/output/format_persistence.h"

#include "korvel/documents/xml_node.h"
#include "korvel/documents/xml_scanner.h"
#include "korvel/documents/xml_schema_error.h"
#include "korvel/documents/xml_text.h"
#include "korvel/documents/xml_tree.h"
#include "korvel/output/angle_output.h"
#include "korvel/output/date_output.h"
#include "korvel/output/number_output.h"
#include "korvel/platform/code_page.h"
#include "korvel/platform/error.h"
#include "korvel/platform/first_failure.h"
#include "korvel/platform/replace_file.h"

#include <algorithm>
#include <charconv>
#include <initializer_list>
#include <sstream>

namespace korvel {

namespace {

using internal::AngleRecord;
using internal::CAngleOutput;
using internal::CDateOutput;
using internal::CNumberOutput;
using internal::DateFormatRecord;
using internal::FirstFailure;
using internal::NumberFormat;
using internal::NumberRecord;

template <typename Record>
struct SavedRecord {
    const char* element;
    Record record;
};

// In the order of the file.
constexpr std::initializer_list<SavedRecord<NumberRecord>> NumberRecords = {
    {"Integer", NumberRecord::Integer},
    {"Long", NumberRecord::Long},
    {"Float", NumberRecord::Float},
    {"Double", NumberRecord::Double}};

constexpr std::initializer_list<SavedRecord<AngleRecord>> AngleRecords = {{"Float", AngleRecord::Float},
                                                                          {"Double", AngleRecord::Double}};

struct SavedDateFormat {
    const char* element;
    std::string DateFormatRecord::*format;
};

constexpr SavedDateFormat DateFormats[] = {{"CurrentFormat", &DateFormatRecord::currentFormat},
                                           {"DefaultTime", &DateFormatRecord::defaultTime},
                                           {"DateFormatLong", &DateFormatRecord::dateFormatLong},
                                           {"DateFormatShort", &DateFormatRecord::dateFormatShort}};

void WriteText(std::ostream& stream, const char* element, std::string_view text) {
    CXmlNode node(stream, element);
    node.SetText(EscapeXmlText(text));
    node.WriteOpeningTag();
}

void WriteFormat(std::ostream& stream, const char* element, const NumberFormat& format) {
    CXmlNode node(stream, element);
    node.WriteOpeningTag();
    WriteText(stream, "System", format.System ? "-1" : "0");
    WriteText(stream, "NumDigits", std::to_string(format.NumDigits));
    WriteText(stream, "LeadingZero", std::to_string(format.LeadingZero));
    WriteText(stream, "Grouping", std::to_string(format.Grouping));
    WriteText(stream, "DecimalSep", format.DecimalSep);
    WriteText(stream, "ThousandSep", format.ThousandSep);
    WriteText(stream, "NegativeOrder", std::to_string(format.NegativeOrder));
}

void WriteNumbers(std::ostream& stream) {
    CXmlNode node(stream, "NumberFormat");
    node.WriteOpeningTag();
    for (const auto& [element, record] : NumberRecords)
        WriteFormat(stream, element, CNumberOutput::Instance().Format(record));
}

void WriteAngles(std::ostream& stream) {
    const CAngleOutput& output = CAngleOutput::Instance();
    CXmlNode node(stream, "AngleFormat");
    node.WriteOpeningTag();
    WriteText(stream, "Angle", std::to_string(output.Unit()));
    for (const auto& [element, record] : AngleRecords)
        WriteFormat(stream, element, output.Format(record));
}

void WriteDates(std::ostream& stream) {
    CXmlNode node(stream, "DateFormat");
    node.WriteOpeningTag();
    for (const auto& [element, format] : DateFormats)
        WriteText(stream, element, CDateOutput::Instance().Formats().*format);
}

constexpr std::string_view TextElements[] = {
    "System",        "NumDigits", "LeadingZero",   "Grouping",    "DecimalSep",     "ThousandSep",
    "NegativeOrder", "Angle",     "CurrentFormat", "DefaultTime", "DateFormatLong", "DateFormatShort"};

bool HoldsText(std::string_view element) {
    return std::find(std::begin(TextElements), std::end(TextElements), element) != std::end(TextElements);
}

// Blanks count: for separators and formats.
std::string ReadText(const XmlElement& parent, std::string_view element) {
    return internal::BytesOfXmlText(parent.Child(element).text);
}

// Without the blanks that an editor puts around it.
std::string_view ReadWord(const XmlElement& parent, std::string_view element) {
    return TrimXmlBlanks(parent.Child(element).text);
}

bool ReadBool(const XmlElement& parent, const char* element) {
    const std::string_view text = ReadWord(parent, element);
    return !text.empty() && text != "0" && text != "false";
}

std::uint32_t ReadNumber(const XmlElement& parent, const char* element) {
    const std::string_view text = ReadWord(parent, element);
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size())
        throw XmlSchemaError({"the element %1 holds %2, which is no number",
                              {XmlError::Quoted(element), XmlError::Quoted(text)}});
    return number;
}

void ReadSeparator(const XmlElement& parent, const char* element, NumberFormat& format,
                   bool (NumberFormat::*set)(std::string_view)) {
    if (!(format.*set)(ReadText(parent, element)))
        throw XmlSchemaError({"the element %1 holds more than three bytes", {XmlError::Quoted(element)}});
}

void ReadFields(const XmlElement& element, NumberFormat& format) {
    format.NumDigits = ReadNumber(element, "NumDigits");
    format.LeadingZero = ReadNumber(element, "LeadingZero");
    format.Grouping = ReadNumber(element, "Grouping");
    ReadSeparator(element, "DecimalSep", format, &NumberFormat::SetDecimalSep);
    ReadSeparator(element, "ThousandSep", format, &NumberFormat::SetThousandSep);
    format.NegativeOrder = ReadNumber(element, "NegativeOrder");
}

// Loads one file. A service of which something was read is touched.
class FormatLoader {
public:
    void Load(const std::string& path) {
        const XmlElement root = internal::ReadXmlFile(path, HoldsText);
        if (root.name != "FORMATS")
            throw XmlSchemaError(
                {"the root element is %1, not %2", {XmlError::Quoted(root.name), "'FORMATS'"}});
        LoadNumbers(root.Child("NumberFormat"));
        LoadAngles(root.Child("AngleFormat"));
        LoadDates(root.Child("DateFormat"));
    }

    // Calls the listeners of every touched service.
    void FireTouched(FirstFailure& failure) {
        if (m_numbersTouched)
            failure.Try([] { CNumberOutput::Instance().Notification().Fire(); });
        if (m_anglesTouched)
            failure.Try([] { CAngleOutput::Instance().Notification().Fire(); });
        if (m_datesTouched)
            failure.Try([] { CDateOutput::Instance().Notification().Fire(); });
    }

private:
    void LoadNumbers(const XmlElement& section) {
        for (const auto& [element, record] : NumberRecords)
            LoadRecord(section.Child(element), CNumberOutput::Instance(), record, m_numbersTouched);
    }

    void LoadAngles(const XmlElement& section) {
        CAngleOutput& output = CAngleOutput::Instance();
        output.SetUnit(ReadNumber(section, "Angle"));
        m_anglesTouched = true;
        for (const auto& [element, record] : AngleRecords)
            LoadRecord(section.Child(element), output, record, m_anglesTouched);
    }

    void LoadDates(const XmlElement& section) {
        for (const auto& [element, format] : DateFormats) {
            CDateOutput::Instance().Formats().*format = ReadText(section, element);
            m_datesTouched = true;
        }
    }

    template <typename Service, typename Record>
    static void LoadRecord(const XmlElement& element, Service& service, Record record, bool& touched) {
        NumberFormat format = service.Format(record);
        format.System = ReadBool(element, "System");
        touched = true;
        try {
            if (!format.System)
                ReadFields(element, format);
        } catch (...) {
            service.ReplaceFormat(record, format);
            throw;
        }
        service.ReplaceFormat(record, format);
    }

    bool m_numbersTouched = false;
    bool m_anglesTouched = false;
    bool m_datesTouched = false;
};

// Makes the records follow the regional settings again.
template <typename Service, typename Records>
void FollowSystem(Service& service, const Records& records) {
    for (const auto& saved : records) {
        NumberFormat format = service.Format(saved.record);
        format.System = true;
        service.ReplaceFormat(saved.record, format);
    }
    service.FollowSystem();
}

bool IsRefusedByXml(char byte) {
    return static_cast<unsigned char>(byte) < ' ' && !XmlScanner::IsBlank(byte);
}

std::string PathText(const char* path) {
    return path != nullptr ? path : "";
}

} // namespace

void SaveFormatStates(const char* path) {
    std::ostringstream stream;
    {
        CXmlNode root(stream, "FORMATS");
        root.WriteOpeningTag();
        WriteNumbers(stream);
        WriteAngles(stream);
        WriteDates(stream);
    }
    if (std::any_of(stream.view().begin(), stream.view().end(), IsRefusedByXml))
        throw Error(platform::FromUtf8(PathText(path)).text +
                    ": a format holds a control character, which no XML file can hold");
    platform::ReplaceFile(PathText(path), stream.view());
}

void LoadFormatStates(const char* path) {
    FormatLoader loader;
    FirstFailure failure;
    failure.Try([&] { loader.Load(PathText(path)); });
    loader.FireTouched(failure);
    failure.Rethrow();
}

void ResetFormatStates() {
    FirstFailure failure;
    failure.Try([] { FollowSystem(CNumberOutput::Instance(), NumberRecords); });
    CAngleOutput::Instance().SetUnit(CAngleOutput::Radians);
    failure.Try([] { FollowSystem(CAngleOutput::Instance(), AngleRecords); });
    failure.Try([] { CDateOutput::Instance().ReturnToSystem(); });
    failure.Rethrow();
}

} // namespace korvel
