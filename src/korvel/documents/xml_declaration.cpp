#include "korvel/documents/xml_declaration.h"

#include "korvel/documents/xml_scanner.h"

#include <algorithm>
#include <string>

namespace korvel::internal {
namespace {

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsVersion(std::string_view text) {
    return text.size() > 2 && text.starts_with("1.") && std::all_of(text.begin() + 2, text.end(), IsDigit);
}

bool IsYesOrNo(std::string_view text) {
    return text == "yes" || text == "no";
}

struct Part {
    std::string_view name;
    bool (*allows)(std::string_view value);
    const char* refusal;
};
constexpr Part Parts[] = {
    {"version", IsVersion, "the version of XML is not 1.0"},
    {"encoding", IsEncodingName, "this is no name of an encoding"},
    {"standalone", IsYesOrNo, "'yes' or 'no' is expected here"},
};
constexpr const Part* Encoding = Parts + 1;

} // namespace

bool IsEncodingName(std::string_view name) {
    return !name.empty() && IsLetter(name.front()) &&
           std::all_of(
               name.begin(), name.end(),
               [](char c) { return IsLetter(c) || IsDigit(c) || c == '.' || c == '_' || c == '-'; });
}

std::string_view DeclaredEncoding(std::string_view text) {
    constexpr std::string_view Start = "<?xml";
    const bool isDeclared = text.starts_with(Start) && text.size() > Start.size() &&
                            (XmlScanner::IsBlank(text[Start.size()]) || text[Start.size()] == '?');
    if (!isDeclared)
        return {};
    XmlScanner scanner(text, Start.size());
    const auto offsetOf = [&](std::string_view piece) {
        return static_cast<std::size_t>(piece.data() - text.data());
    };
    std::string_view encoding;
    const Part* next = Parts;
    for (XmlAttribute attribute; scanner.NextAttribute(attribute);) {
        const Part* part = std::find_if(next, std::end(Parts),
                                        [&](const Part& known) { return known.name == attribute.name; });
        if (part == std::end(Parts) || (next == Parts && part != Parts))
            scanner.Fail(offsetOf(attribute.name), {"the XML declaration holds %1 where it may not",
                                                    {XmlError::Quoted(attribute.name)}});
        if (!part->allows(attribute.value))
            scanner.Fail(offsetOf(attribute.value), part->refusal);
        if (part == Encoding)
            encoding = attribute.value;
        next = part + 1;
    }
    if (next == Parts)
        scanner.Fail(scanner.Position(), "the XML declaration says no version");
    if (!scanner.Skip("?>"))
        scanner.FailUnlessCutOff("?>", "'?>' is expected here");
    return encoding;
}

} // namespace korvel::internal
