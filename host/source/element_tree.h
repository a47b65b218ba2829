#pragma once

#include "korvel/documents/xml_scanner.h"
#include "korvel/documents/xml_text.h"

#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace korvel::inspector {

/// The number of an element in document order; the root is 0.
using ElementIndex = std::uint32_t;
inline constexpr ElementIndex NoElement = 0xFFFFFFFF;

/// A text inside an element, as written: from its first to its last character that is not blank. It may hold
/// comments and character sections.
struct TextSource {
    std::string_view raw;
    std::size_t offset = 0; ///< where it begins in the source, also when it was edited
    bool isEdited = false;  ///< an edited text may be empty; any other text holds something

    /// True when the characters are the value itself, so that it can be replaced in place.
    bool IsPlain() const { return raw.find('<') == std::string_view::npos; }

    /// What it means; see DecodeXmlText.
    XmlCharacters Decode(std::size_t longest) const { return DecodeXmlText(raw, longest); }
};

/// The elements of a well-formed XML document over its text, which stays as it is: 12 bytes an element.
/// Attributes and texts are not stored: they are found again from the start tag when someone asks, and are
/// returned as views into the document.
///
/// What is edited is kept beside the source, by element and by text, and is read in its place: an edit costs
/// the tag or the text that it changes, not the file. A view lasts until the next edit of its tag or text.
///
///     ElementTree tree = ReadElements("<a b='1'><c>x</c><c/></a>");
///     tree.Name(0)                  -> "a"
///     tree.FindAttribute(0, "b")    -> "1"
///     for (ElementIndex child : tree.Children(0)) ...   // 1, 2
///     tree.Text(1).raw              -> "x"
///     tree.ReplaceStartTag(0, "<a b='2'>");
///     tree.EditedSource()           -> "<a b='2'><c>x</c><c/></a>"
class ElementTree {
public:
    class ChildRange;

    const std::string& Source() const { return m_source; }
    ElementIndex Count() const { return static_cast<ElementIndex>(m_elements.size()); }

    /// With its prefix, as written.
    std::string_view Name(ElementIndex element) const;
    std::string_view LocalName(ElementIndex element) const;

    /// NoElement for the root.
    ElementIndex Parent(ElementIndex element) const { return m_elements[element].parent; }
    /// The first element after all that are in this one.
    ElementIndex SubtreeEnd(ElementIndex element) const { return m_elements[element].end; }
    bool HasChildren(ElementIndex element) const { return SubtreeEnd(element) != element + 1; }
    ChildRange Children(ElementIndex element) const;
    /// NoElement when there is none of this local name.
    ElementIndex FindChild(ElementIndex element, std::string_view localName) const;

    std::vector<XmlAttribute> Attributes(ElementIndex element) const;
    /// The value as written; a null view when there is no such attribute.
    std::string_view FindAttribute(ElementIndex element, std::string_view name) const;

    /// What the value means: references resolved, without the blanks around it; empty when there is no such
    /// attribute.
    std::string AttributeText(ElementIndex element, std::string_view name) const;

    /// Where an attribute that was returned for the element begins in its start tag, and the one that begins
    /// there.
    std::uint32_t PlaceOf(ElementIndex element, const XmlAttribute& attribute) const;
    XmlAttribute AttributeAt(ElementIndex element, std::uint32_t place) const;
    /// The attributes that the file had.
    std::vector<XmlAttribute> SourceAttributes(ElementIndex element) const;

    /// All that is not blank between two tags, in the order of the file.
    std::vector<TextSource> Texts(ElementIndex element) const;
    /// The text that begins at an offset of the source or is the first one after it; with no such text, an
    /// empty one.
    TextSource Text(ElementIndex element, std::size_t offset = 0) const;

    /// From its '<' to its '>'.
    std::string_view StartTag(ElementIndex element) const;
    /// `tag` is well-formed, with the element's name, its end ("/>" or ">") and its declarations of
    /// namespaces. The tag of the source itself ends the edit.
    void ReplaceStartTag(ElementIndex element, std::string tag);
    /// `offset` and `raw` as in TextSource; `raw` holds characters and references only. The text of the
    /// source itself ends the edit.
    void ReplaceText(ElementIndex element, std::size_t offset, std::string raw);

    /// A stretch of the document as it is now, and the stretch of the source that it stands for.
    struct Piece {
        std::string_view text;
        std::size_t begin;
        std::size_t end;
        bool isEdited; ///< false: the very characters of the source
    };
    /// The whole document, in order. Of an edited tag or text only what differs is an edited piece.
    std::vector<Piece> Pieces() const;
    std::string EditedSource() const;
    /// An element of it, from its '<' to the '>' of its end.
    std::string EditedText(ElementIndex element) const;

    /// The address that a prefix (empty: none) stands for in an element; empty when it stands for nothing.
    std::string_view NamespaceOf(ElementIndex element, std::string_view prefix) const;

    /// Where the element's '<' is in the source.
    std::size_t OffsetOf(ElementIndex element) const { return m_elements[element].start; }
    /// Of a view into the source.
    std::size_t OffsetOf(std::string_view piece) const {
        return static_cast<std::size_t>(piece.data() - m_source.data());
    }

private:
    friend class DocumentReader;

    explicit ElementTree(std::string source) : m_source(std::move(source)) {}

    struct Element {
        std::uint32_t start; // of the '<'
        ElementIndex end;
        ElementIndex parent;
    };
    struct MixedText {
        ElementIndex element;
        std::uint32_t begin;
        std::uint32_t end;
    };
    static constexpr std::uint32_t None = 0xFFFFFFFF; // no declaration
    struct NamespaceDeclaration {
        ElementIndex element;
        std::uint32_t attribute;    // offset of its name
        std::uint32_t outer = None; // the next declaration of the same prefix around this one
    };

    // A text and where a start tag begins in it.
    struct TagPlace {
        std::string_view document;
        std::size_t begin;

        XmlScanner AtAttributes() const;
        std::size_t Size() const;
    };
    TagPlace TagOf(ElementIndex element) const;
    TagPlace SourceTagOf(ElementIndex element) const { return {m_source, m_elements[element].start}; }
    TextSource OnlyText(ElementIndex element) const;
    std::size_t SizeOfOnlyText(std::size_t offset) const;
    std::size_t EndOf(ElementIndex element) const; // in the source, after its end tag
    TextSource AsEdited(std::size_t begin, std::size_t end) const;
    std::deque<MixedText>::const_iterator FindMixedText(ElementIndex element, std::size_t offset) const;
    void IndexNamespaces();
    std::string_view PrefixAt(const NamespaceDeclaration& declaration) const;
    std::uint32_t InnermostDeclaration(std::uint32_t from, ElementIndex element) const;

    std::string m_source;
    std::vector<Element> m_elements;
    // Hardly any element has these, so they are not counted first; deques, because a vector that grows takes
    // twice its memory.
    std::deque<MixedText> m_mixedTexts;            // of elements with children, by element, then by offset
    std::deque<NamespaceDeclaration> m_namespaces; // by prefix, then by element

    struct Edit {
        std::size_t size; // of what it replaces
        std::string text;
    };
    using Edits = std::map<std::size_t, Edit>; // by offset in the source

    void Keep(Edits& edits, std::size_t begin, std::size_t size, std::string text);

    Edits m_editedTags;
    Edits m_editedTexts;
};

class ElementTree::ChildRange {
public:
    class Iterator {
    public:
        Iterator(const ElementTree& tree, ElementIndex element) : m_tree(&tree), m_element(element) {}
        ElementIndex operator*() const { return m_element; }
        Iterator& operator++() {
            m_element = m_tree->SubtreeEnd(m_element);
            return *this;
        }
        bool operator!=(const Iterator& other) const { return m_element != other.m_element; }

    private:
        const ElementTree* m_tree;
        ElementIndex m_element;
    };

    ChildRange(const ElementTree& tree, ElementIndex parent) : m_tree(&tree), m_parent(parent) {}
    Iterator begin() const { return {*m_tree, m_parent + 1}; }
    Iterator end() const { return {*m_tree, m_tree->SubtreeEnd(m_parent)}; }

private:
    const ElementTree* m_tree;
    ElementIndex m_parent;
};

inline ElementTree::ChildRange ElementTree::Children(ElementIndex element) const {
    return {*this, element};
}

} // namespace korvel::inspector
