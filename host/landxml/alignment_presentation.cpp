#include "landxml/alignment_presentation.h"

#include "landxml/landxml_document.h"

#include <optional>

namespace korvel::inspector {
namespace {

std::optional<TypedValue> ReadAttribute(const LandXmlDocument& document, ElementIndex element,
                                        const char* name) {
    const std::string_view source = document.Tree().FindAttribute(element, name);
    if (source.data() == nullptr)
        return std::nullopt;
    return document.Members().AttributeValue(element, {name, source});
}

std::string TextOf(const TypedValue& value) {
    const std::string text = value.value.ToText();
    return value.unit.empty() ? text : text + " " + value.unit;
}

bool IsNumber(const std::optional<TypedValue>& value) {
    return value && value->value.Type != DT_String;
}

} // namespace

std::string AlignmentPresentation::AttributeText(const char* name) const {
    const std::optional<TypedValue> value = ReadAttribute(m_document, m_alignment, name);
    return value ? TextOf(*value) : std::string();
}

// Where the file does not say it, an alignment ends its length after its start.
std::string AlignmentPresentation::EndStationText() const {
    const std::optional<TypedValue> length = ReadAttribute(m_document, m_alignment, "length");
    std::optional<TypedValue> end = ReadAttribute(m_document, m_alignment, "staEnd");
    if (!end) {
        end = ReadAttribute(m_document, m_alignment, "staStart");
        if (!IsNumber(length) || !IsNumber(end))
            return {};
        end->value.Value.Double += length->value.Value.Double;
    }
    return TextOf(*end);
}

std::string AlignmentPresentation::GetPresentationText(const char* column) {
    if (column != nullptr)
        return AttributeText(column);
    std::string text = AttributeText("length");
    const std::string start = AttributeText("staStart");
    if (start.empty())
        return text;
    if (!text.empty())
        text += ", ";
    text += start;
    const std::string end = EndStationText();
    return end.empty() ? text : text + " - " + end;
}

} // namespace korvel::inspector
