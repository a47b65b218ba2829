#include "source/element_tree.h"

#include "source/blanks.h"

#include <algorithm>

namespace korvel::inspector {
namespace {

std::string_view LocalPart(std::string_view name) {
    return name.substr(name.find(':') + 1); // npos + 1 is 0: the whole name
}

// The offset of the next tag: after the comments, sections and characters from `begin` on.
std::size_t EndOfCharacters(std::string_view source, std::size_t begin) {
    XmlScanner scanner(source, begin);
    while (!scanner.AtEnd())
        if (scanner.IsAt("<!--"))
            scanner.SkipComment();
        else if (scanner.IsAt("<![CDATA["))
            scanner.TakeCharacterSection();
        else if (scanner.IsAt("<?"))
            scanner.SkipInstruction();
        else if (scanner.IsAt("<"))
            break;
        else
            scanner.TakeCharacterData();
    return scanner.Position();
}

} // namespace

std::string_view ElementTree::Name(ElementIndex element) const {
    return XmlScanner(m_source, m_elements[element].start + 1).TakeName();
}

std::string_view ElementTree::LocalName(ElementIndex element) const {
    return LocalPart(Name(element));
}

ElementIndex ElementTree::FindChild(ElementIndex element, std::string_view localName) const {
    for (const ElementIndex child : Children(element))
        if (LocalName(child) == localName)
            return child;
    return NoElement;
}

XmlScanner ElementTree::AtAttributes(ElementIndex element) const {
    XmlScanner scanner(m_source, m_elements[element].start + 1);
    scanner.TakeName();
    return scanner;
}

std::vector<XmlAttribute> ElementTree::Attributes(ElementIndex element) const {
    std::vector<XmlAttribute> attributes;
    XmlScanner scanner = AtAttributes(element);
    for (XmlAttribute attribute; scanner.NextAttribute(attribute);)
        attributes.push_back(attribute);
    return attributes;
}

std::string_view ElementTree::FindAttribute(ElementIndex element, std::string_view name) const {
    XmlScanner scanner = AtAttributes(element);
    for (XmlAttribute attribute; scanner.NextAttribute(attribute);)
        if (attribute.name == name)
            return attribute.value;
    return {};
}

std::string ElementTree::AttributeText(ElementIndex element, std::string_view name) const {
    const std::string text = DecodeXmlAttribute(FindAttribute(element, name), std::string::npos).utf8;
    return std::string(Trim(text));
}

std::vector<TextSource> ElementTree::Texts(ElementIndex element) const {
    std::vector<TextSource> texts;
    if (!HasChildren(element)) {
        if (const std::string_view raw = OnlyText(element); !raw.empty())
            texts.push_back({raw});
        return texts;
    }
    for (auto text = FindMixedText(element, 0); text != m_mixedTexts.end() && text->element == element;
         ++text)
        texts.push_back({std::string_view(m_source).substr(text->begin, text->end - text->begin)});
    return texts;
}

TextSource ElementTree::Text(ElementIndex element, std::size_t offset) const {
    if (!HasChildren(element))
        return {OnlyText(element)};
    const auto text = FindMixedText(element, offset);
    if (text == m_mixedTexts.end() || text->element != element)
        return {};
    return {std::string_view(m_source).substr(text->begin, text->end - text->begin)};
}

std::deque<ElementTree::MixedText>::const_iterator ElementTree::FindMixedText(ElementIndex element,
                                                                              std::size_t offset) const {
    return std::partition_point(
        m_mixedTexts.begin(), m_mixedTexts.end(),
        [&](const MixedText& text) {
            return text.element != element ? text.element < element : text.begin < offset;
        });
}

// Of an element without children.
std::string_view ElementTree::OnlyText(ElementIndex element) const {
    XmlScanner scanner = AtAttributes(element);
    for (XmlAttribute attribute; scanner.NextAttribute(attribute);) {
    }
    if (!scanner.Skip(">"))
        return {}; // an empty-element tag
    const std::size_t begin = scanner.Position();
    return Trim(std::string_view(m_source).substr(begin, EndOfCharacters(m_source, begin) - begin));
}

XmlAttribute ElementTree::AttributeAt(std::uint32_t offset) const {
    XmlScanner scanner(m_source, offset - 1); // from the blank before it
    XmlAttribute attribute;
    scanner.NextAttribute(attribute);
    return attribute;
}

std::string_view ElementTree::PrefixAt(const NamespaceDeclaration& declaration) const {
    const std::string_view name = XmlScanner(m_source, declaration.attribute).TakeName();
    return name == "xmlns" ? std::string_view() : LocalPart(name);
}

void ElementTree::IndexNamespaces() {
    std::sort(m_namespaces.begin(), m_namespaces.end(),
              [this](const NamespaceDeclaration& a, const NamespaceDeclaration& b) {
                  const int order = PrefixAt(a).compare(PrefixAt(b));
                  return order != 0 ? order < 0 : a.element < b.element;
              });
    for (std::uint32_t i = 1; i < m_namespaces.size(); ++i)
        if (PrefixAt(m_namespaces[i - 1]) == PrefixAt(m_namespaces[i]))
            m_namespaces[i].outer = InnermostDeclaration(i - 1, m_namespaces[i].element);
}

std::uint32_t ElementTree::InnermostDeclaration(std::uint32_t from, ElementIndex element) const {
    while (from != None && SubtreeEnd(m_namespaces[from].element) <= element)
        from = m_namespaces[from].outer;
    return from;
}

std::string_view ElementTree::NamespaceOf(ElementIndex element, std::string_view prefix) const {
    const auto next = std::partition_point(m_namespaces.begin(), m_namespaces.end(),
                                           [&](const NamespaceDeclaration& declaration) {
                                               const int order = PrefixAt(declaration).compare(prefix);
                                               return order != 0 ? order < 0 : declaration.element <= element;
                                           });
    if (next == m_namespaces.begin() || PrefixAt(*(next - 1)) != prefix)
        return {};
    const auto last = static_cast<std::uint32_t>(next - m_namespaces.begin() - 1);
    const std::uint32_t found = InnermostDeclaration(last, element);
    return found == None ? std::string_view() : AttributeAt(m_namespaces[found].attribute).value;
}

} // namespace korvel::inspector
