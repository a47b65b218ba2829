#include "source/element_tree.h"

#include "korvel/platform/utf8.h"
#include "source/blanks.h"

#include <algorithm>
#include <utility>

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

std::vector<XmlAttribute> AttributesIn(XmlScanner scanner) {
    std::vector<XmlAttribute> attributes;
    for (XmlAttribute attribute; scanner.NextAttribute(attribute);)
        attributes.push_back(attribute);
    return attributes;
}

// How many bytes at the front and at the back of two texts are the same, whole characters.
std::size_t SameAtFront(std::string_view a, std::string_view b) {
    const auto differ = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first;
    auto count = static_cast<std::size_t>(differ - a.begin());
    const auto cutsCharacter = [&](std::string_view text) {
        return count < text.size() && platform::ContinuesUtf8(text[count]);
    };
    while (count > 0 && (cutsCharacter(a) || cutsCharacter(b)))
        --count;
    return count;
}

std::size_t SameAtBack(std::string_view a, std::string_view b) {
    const auto differ = std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend()).first;
    auto count = static_cast<std::size_t>(differ - a.rbegin());
    while (count > 0 && platform::ContinuesUtf8(a[a.size() - count]))
        --count;
    return count;
}

// From an offset of a blank.
XmlAttribute AttributeAfter(std::string_view document, std::size_t offset) {
    XmlScanner scanner(document, offset);
    XmlAttribute attribute;
    scanner.NextAttribute(attribute);
    return attribute;
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

XmlScanner ElementTree::TagPlace::AtAttributes() const {
    XmlScanner scanner(document, begin + 1);
    scanner.TakeName();
    return scanner;
}

std::size_t ElementTree::TagPlace::Size() const {
    XmlScanner scanner = AtAttributes();
    for (XmlAttribute attribute; scanner.NextAttribute(attribute);) {
    }
    return document.find('>', scanner.Position()) + 1 - begin;
}

ElementTree::TagPlace ElementTree::TagOf(ElementIndex element) const {
    const TagPlace own = SourceTagOf(element);
    if (m_editedTags.empty())
        return own;
    const auto edited = m_editedTags.find(own.begin);
    return edited == m_editedTags.end() ? own : TagPlace{edited->second.text, 0};
}

std::string_view ElementTree::StartTag(ElementIndex element) const {
    const TagPlace tag = TagOf(element);
    return tag.document.substr(tag.begin, tag.Size());
}

std::vector<XmlAttribute> ElementTree::Attributes(ElementIndex element) const {
    return AttributesIn(TagOf(element).AtAttributes());
}

std::vector<XmlAttribute> ElementTree::SourceAttributes(ElementIndex element) const {
    return AttributesIn(SourceTagOf(element).AtAttributes());
}

std::string_view ElementTree::FindAttribute(ElementIndex element, std::string_view name) const {
    XmlScanner scanner = TagOf(element).AtAttributes();
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
        if (const TextSource only = OnlyText(element); only.isEdited || !only.raw.empty())
            texts.push_back(only);
        return texts;
    }
    for (auto text = FindMixedText(element, 0); text != m_mixedTexts.end() && text->element == element;
         ++text)
        texts.push_back(AsEdited(text->begin, text->end));
    return texts;
}

TextSource ElementTree::Text(ElementIndex element, std::size_t offset) const {
    if (!HasChildren(element))
        return OnlyText(element);
    const auto text = FindMixedText(element, offset);
    if (text == m_mixedTexts.end() || text->element != element)
        return {};
    return AsEdited(text->begin, text->end);
}

TextSource ElementTree::AsEdited(std::size_t begin, std::size_t end) const {
    const auto edited = m_editedTexts.empty() ? m_editedTexts.end() : m_editedTexts.find(begin);
    if (edited != m_editedTexts.end())
        return {edited->second.text, begin, true};
    return {std::string_view(m_source).substr(begin, end - begin), begin, false};
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
TextSource ElementTree::OnlyText(ElementIndex element) const {
    const TagPlace tag = SourceTagOf(element);
    const std::size_t begin = tag.begin + tag.Size();
    if (m_source[begin - 2] == '/')
        return {}; // an empty-element tag
    const std::string_view raw =
        Trim(std::string_view(m_source).substr(begin, EndOfCharacters(m_source, begin) - begin));
    return raw.empty() ? TextSource() : AsEdited(OffsetOf(raw), OffsetOf(raw) + raw.size());
}

std::uint32_t ElementTree::PlaceOf(ElementIndex element, const XmlAttribute& attribute) const {
    const TagPlace tag = TagOf(element);
    return static_cast<std::uint32_t>(attribute.name.data() - tag.document.data() -
                                      static_cast<std::ptrdiff_t>(tag.begin));
}

XmlAttribute ElementTree::AttributeAt(ElementIndex element, std::uint32_t place) const {
    const TagPlace tag = TagOf(element);
    return AttributeAfter(tag.document, tag.begin + place - 1);
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
    return found == None ? std::string_view()
                         : AttributeAfter(m_source, m_namespaces[found].attribute - 1).value;
}

void ElementTree::ReplaceStartTag(ElementIndex element, std::string tag) {
    const TagPlace own = SourceTagOf(element);
    Keep(m_editedTags, own.begin, own.Size(), std::move(tag));
}

void ElementTree::ReplaceText(ElementIndex element, std::size_t offset, std::string raw) {
    const auto mixed = FindMixedText(element, offset);
    const std::size_t size = HasChildren(element) ? mixed->end - mixed->begin : SizeOfOnlyText(offset);
    Keep(m_editedTexts, offset, size, std::move(raw));
}

std::size_t ElementTree::SizeOfOnlyText(std::size_t offset) const {
    return Trim(std::string_view(m_source).substr(offset, EndOfCharacters(m_source, offset) - offset)).size();
}

void ElementTree::Keep(Edits& edits, std::size_t begin, std::size_t size, std::string text) {
    if (std::string_view(m_source).substr(begin, size) == text)
        edits.erase(begin);
    else
        edits.insert_or_assign(begin, Edit{size, std::move(text)});
}

std::vector<ElementTree::Piece> ElementTree::Pieces() const {
    const std::string_view source = m_source;
    std::vector<Piece> pieces;
    std::size_t done = 0;
    const auto addUnedited = [&](std::size_t end) {
        if (end > done)
            pieces.push_back({source.substr(done, end - done), done, end, false});
        done = end;
    };
    auto tag = m_editedTags.begin();
    auto text = m_editedTexts.begin();
    while (tag != m_editedTags.end() || text != m_editedTexts.end()) {
        const bool isTag =
            text == m_editedTexts.end() || (tag != m_editedTags.end() && tag->first < text->first);
        const auto& [begin, edit] = isTag ? *tag++ : *text++;
        const std::string_view before = source.substr(begin, edit.size);
        const std::size_t first = SameAtFront(before, edit.text);
        const std::size_t last = SameAtBack(before.substr(first), std::string_view(edit.text).substr(first));
        addUnedited(begin + first);
        const std::size_t end = begin + edit.size - last;
        pieces.push_back(
            {std::string_view(edit.text).substr(first, edit.text.size() - last - first), done, end, true});
        done = end;
    }
    addUnedited(source.size());
    return pieces;
}

std::string ElementTree::EditedSource() const {
    std::string text;
    text.reserve(m_source.size());
    for (const Piece& piece : Pieces())
        text += piece.text;
    return text;
}

// After its last start tag only end tags of elements in it and its own come.
std::size_t ElementTree::EndOf(ElementIndex element) const {
    const ElementIndex last = SubtreeEnd(element) - 1;
    const TagPlace tag = SourceTagOf(last);
    std::size_t position = tag.begin + tag.Size();
    std::size_t open = m_source[position - 2] == '/' ? 0 : 1; // of these elements the end is to come
    for (ElementIndex around = last; around != element; around = Parent(around))
        ++open;
    for (; open > 0; --open)
        position = m_source.find('>', EndOfCharacters(m_source, position)) + 1;
    return position;
}

std::string ElementTree::EditedText(ElementIndex element) const {
    const std::size_t begin = OffsetOf(element);
    const std::size_t end = EndOf(element);
    std::string text;
    for (const Piece& piece : Pieces()) {
        if (piece.isEdited) {
            // One that begins where the element does belongs to what is before: a tag's first byte stays.
            if (piece.begin > begin && piece.begin < end)
                text += piece.text;
            continue;
        }
        const std::size_t from = std::max(piece.begin, begin);
        const std::size_t to = std::min(piece.end, end);
        if (from < to)
            text += piece.text.substr(from - piece.begin, to - from);
    }
    return text;
}

} // namespace korvel::inspector
