#include "element_tree.h"

#include "blanks.h"

#include <algorithm>

namespace korvel::inspector {
namespace {

std::string_view LocalPart(std::string_view name) {
    return name.substr(name.find(':') + 1); // npos + 1 is 0: the whole name
}

// The offset behind the comments, sections and characters from `begin` on: where the next tag is.
std::size_t EndOfCharacters(std::string_view source, std::size_t begin) {
    SourceScanner scanner(source, begin);
    while (!scanner.AtEnd()) {
        if (scanner.IsAt("<!--"))
            scanner.Comment();
        else if (scanner.IsAt("<![CDATA["))
            scanner.CharacterSection();
        else if (scanner.IsAt("<?"))
            scanner.Instruction();
        else if (scanner.IsAt("<"))
            break;
        else
            scanner.CharacterData();
    }
    return scanner.Position();
}

} // namespace

std::string_view ElementTree::Name(ElementIndex element) const {
    return SourceScanner(m_source, m_elements[element].start + 1).Name();
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

SourceScanner ElementTree::AtAttributes(ElementIndex element) const {
    SourceScanner scanner(m_source, m_elements[element].start + 1);
    scanner.Name();
    return scanner;
}

std::vector<AttributeSource> ElementTree::Attributes(ElementIndex element) const {
    std::vector<AttributeSource> attributes;
    SourceScanner scanner = AtAttributes(element);
    for (AttributeSource attribute; scanner.NextAttribute(attribute);)
        attributes.push_back(attribute);
    return attributes;
}

std::string_view ElementTree::FindAttribute(ElementIndex element, std::string_view name) const {
    SourceScanner scanner = AtAttributes(element);
    for (AttributeSource attribute; scanner.NextAttribute(attribute);)
        if (attribute.name == name)
            return attribute.value;
    return {};
}

TextSource ElementTree::Text(ElementIndex element) const {
    if (HasChildren(element)) {
        const auto found =
            std::lower_bound(m_mixedTexts.begin(), m_mixedTexts.end(), element,
                             [](const MixedText& text, ElementIndex e) { return text.element < e; });
        if (found == m_mixedTexts.end() || found->element != element)
            return {};
        return {std::string_view(m_source).substr(found->begin, found->end - found->begin), found->complete};
    }
    SourceScanner scanner = AtAttributes(element);
    for (AttributeSource attribute; scanner.NextAttribute(attribute);) {
    }
    if (!scanner.Skip(">"))
        return {}; // an empty-element tag
    const std::size_t begin = scanner.Position();
    return {Trim(std::string_view(m_source).substr(begin, EndOfCharacters(m_source, begin) - begin)), true};
}

AttributeSource ElementTree::DeclarationAt(const NamespaceDeclaration& declaration) const {
    SourceScanner scanner(m_source, declaration.attribute - 1); // from the blank before it
    AttributeSource attribute;
    scanner.NextAttribute(attribute);
    attribute.name = attribute.name == "xmlns" ? std::string_view() : LocalPart(attribute.name);
    return attribute;
}

void ElementTree::IndexNamespaces() {
    std::sort(m_namespaces.begin(), m_namespaces.end(),
              [this](const NamespaceDeclaration& a, const NamespaceDeclaration& b) {
                  return a.element != b.element ? a.element < b.element
                                                : DeclarationAt(a).name < DeclarationAt(b).name;
              });
    ElementIndex last = NoElement;
    for (const NamespaceDeclaration& declaration : m_namespaces) {
        if (declaration.element != last)
            m_namespaceScopes.Add(declaration.element, SubtreeEnd(declaration.element));
        last = declaration.element;
    }
}

std::string_view ElementTree::NamespaceOf(ElementIndex element, std::string_view prefix) const {
    for (std::uint32_t scope = m_namespaceScopes.Innermost(element); scope != ScopeIndex::None;
         scope = m_namespaceScopes.Outer(scope)) {
        const ElementIndex holder = m_namespaceScopes.Begin(scope);
        const auto found =
            std::lower_bound(m_namespaces.begin(), m_namespaces.end(), holder,
                             [&](const NamespaceDeclaration& d, ElementIndex e) {
                                 return d.element != e ? d.element < e : DeclarationAt(d).name < prefix;
                             });
        if (found == m_namespaces.end() || found->element != holder)
            continue;
        if (const AttributeSource declaration = DeclarationAt(*found); declaration.name == prefix)
            return declaration.value;
    }
    return {};
}

} // namespace korvel::inspector
