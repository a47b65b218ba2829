#include "source/start_tag.h"

#include "korvel/documents/xml_scanner.h"

#include <map>

namespace korvel::inspector {
namespace {

std::size_t OffsetIn(std::string_view tag, std::string_view piece) {
    return static_cast<std::size_t>(piece.data() - tag.data());
}

XmlScanner AtAttributes(std::string_view tag) {
    XmlScanner scanner(tag, 1);
    scanner.TakeName();
    return scanner;
}

std::vector<XmlAttribute> AttributesOf(std::string_view tag) {
    std::vector<XmlAttribute> attributes;
    XmlScanner scanner = AtAttributes(tag);
    for (XmlAttribute attribute; scanner.NextAttribute(attribute);)
        attributes.push_back(attribute);
    return attributes;
}

XmlAttribute Find(std::string_view tag, std::string_view name) {
    XmlScanner scanner = AtAttributes(tag);
    XmlAttribute attribute;
    while (scanner.NextAttribute(attribute) && attribute.name != name) {
    }
    return attribute;
}

std::string Replace(std::string_view tag, std::string_view piece, std::string_view by) {
    return std::string(tag).replace(OffsetIn(tag, piece), piece.size(), by);
}

// The blanks before an attribute.
std::string_view BlanksBefore(std::string_view tag, const XmlAttribute& attribute) {
    const std::size_t end = OffsetIn(tag, attribute.name);
    std::size_t begin = end;
    while (XmlScanner::IsBlank(tag[begin - 1])) // the name of the element ends the search
        --begin;
    return tag.substr(begin, end - begin);
}

} // namespace

std::string SetAttribute(std::string_view tag, std::string_view name, std::string_view value,
                         const CharacterTest& isHeld) {
    const std::string_view old = Find(tag, name).value;
    return Replace(tag, old, RewriteAttribute(old, value, *(old.data() - 1), isHeld));
}

std::string AddAttribute(std::string_view tag, std::string_view name, std::string_view value,
                         const CharacterTest& isHeld) {
    std::string blanks = " ";
    std::string between = "=\"";
    XmlScanner scanner = AtAttributes(tag);
    std::size_t end = scanner.Position();
    for (XmlAttribute last; scanner.NextAttribute(last); end = scanner.Position()) {
        blanks = BlanksBefore(tag, last);
        const std::size_t nameEnd = OffsetIn(tag, last.name) + last.name.size();
        between = tag.substr(nameEnd, OffsetIn(tag, last.value) - nameEnd);
    }
    const char quote = between.back();
    std::string added = blanks;
    added.append(name).append(between).append(EscapeAttribute(value, quote, isHeld)).push_back(quote);
    return std::string(tag).insert(end, added);
}

std::string RemoveAttribute(std::string_view tag, std::string_view name) {
    const XmlAttribute attribute = Find(tag, name);
    const std::size_t begin = OffsetIn(tag, BlanksBefore(tag, attribute));
    const std::size_t end = OffsetIn(tag, attribute.value) + attribute.value.size() + 1;
    return std::string(tag).erase(begin, end - begin);
}

std::string RenameAttribute(std::string_view tag, std::string_view name, std::string_view newName) {
    return Replace(tag, Find(tag, name).name, newName);
}

std::vector<std::string> ChangedAttributes(std::string_view before, std::string_view after) {
    std::map<std::string_view, std::string_view> left; // of those before, what is not found after
    for (const XmlAttribute& attribute : AttributesOf(before))
        left.emplace(attribute.name, attribute.value);
    std::vector<std::string> changed;
    for (const XmlAttribute& attribute : AttributesOf(after)) {
        const auto old = left.find(attribute.name);
        if (old == left.end() || old->second != attribute.value)
            changed.emplace_back(attribute.name);
        if (old != left.end())
            left.erase(old);
    }
    for (const auto& removed : left)
        changed.emplace_back(removed.first);
    return changed;
}

} // namespace korvel::inspector
