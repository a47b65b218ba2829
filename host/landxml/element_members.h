#pragma once

#include "landxml/landxml_scopes.h"
#include "landxml/reading_options.h"
#include "landxml/value_reading.h"
#include "source/reading_progress.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvel::inspector {

/// What a member of an element's object is.
enum class MemberKind : std::uint32_t {
    Attribute,
    TextPart,    ///< one of the values in the element's only text
    Text,        ///< a whole text: one of several between child elements, or one that is not as its type says
    TextElement, ///< a child element that is shown as its text; see ElementMembers
    Object,      ///< a child element
};

/// 8 bytes, for terrains have millions.
struct Member {
    Member(std::uint32_t itsPlace, MemberKind itsKind)
        : place(itsPlace), kind(itsKind), isValid(true), isComplete(true), number(0) {}

    std::uint32_t
        place; ///< of the attribute's name in the start tag, of the text in the source, number of the part,
               ///< or the element
    MemberKind kind : 3;
    bool isValid : 1;          ///< as in TypedValue; true for an object
    bool isComplete : 1;       ///< as in TypedValue; true for an object
    std::uint32_t number : 27; ///< of children with no name of their own: 1 is the first, 0 the only one
};

static_assert(sizeof(Member) == 8);

/// A member's name: the stem, after which numbers may come, and the mark that ends it.
///
///     "Alignment A"  "length [ft]"  "date" + " [invalid]"  "x:note" + " [foreign]"
struct MemberName {
    std::string stem;
    std::string mark;
};

/// Reads the members of elements from the document: which there are, their names and their values.
///
/// An element's members are its attributes, and its texts and child elements, in the order of the file.
/// A child is named by its element's name and its attribute `name`, else `id`. The points and faces of
/// terrains that have no attribute but `id` are shown as text, one row each and not three.
///
/// What LandXML does not define, being of another namespace, is text and marked [foreign]; a value that its
/// type does not allow is text and marked [invalid].
class ElementMembers {
public:
    ElementMembers(const ElementTree& tree, const ReadingOptions& options);

    const ElementTree& Tree() const { return m_tree; }
    const UnitSet& UnitsAt(ElementIndex element) const { return m_scopes.UnitsAt(element); }

    /// In member order, each value read once; children without a name of their own are not numbered yet.
    /// `progress` is told of each child by its number.
    std::vector<Member> List(ElementIndex owner, PhaseProgress* progress = nullptr) const;
    /// Of a member that List has made. Reads no value.
    MemberName NameOf(ElementIndex owner, const Member& member) const;

    // Of a member that is no object.
    /// What its text means, and the text without the blanks around it.
    ValueType TypeOf(ElementIndex owner, const Member& member) const;
    ValueType TypeOfAttribute(ElementIndex owner, std::string_view name) const;
    XmlCharacters CharactersOf(ElementIndex owner, const Member& member) const;
    /// The same, with at most so many bytes.
    XmlCharacters CharactersOf(ElementIndex owner, const Member& member, std::size_t longest) const;
    ValuePlace PlaceOf(ElementIndex owner, const ValueType& type) const;
    TypedValue ValueOf(ElementIndex owner, const Member& member) const;
    TypedValue AttributeValue(ElementIndex owner, const XmlAttribute& attribute) const;

    /// Where a text or a child element begins in the document; members after the attributes are in this
    /// order.
    std::size_t OffsetOf(ElementIndex owner, const Member& member) const;

    /// True when the document holds the value as plain characters that could be replaced.
    bool IsReplaceable(ElementIndex owner, const Member& member) const;

    /// The parts that an element's text has in LandXML; one that is plain where it has none.
    TextType TextTypeOf(ElementIndex element) const;
    /// Whether a text is one of those that the element may have: a row of as many valid values as it has
    /// parts.
    bool IsTextOf(ElementIndex element, const std::string& utf8) const;

    /// How far a change of attributes of an element reaches beyond its own members.
    struct Reach {
        bool parent = false;   ///< they name the element in its parent
        bool units = false;    ///< they name units, which are in names and values elsewhere
        bool stations = false; ///< they say which stations elsewhere are those of a railway
    };
    Reach ReachOf(ElementIndex element, const std::vector<std::string>& attributes) const;
    /// These attributes of an element were changed.
    void FollowTag(ElementIndex element, const std::vector<std::string>& attributes);

    /// True for an element of LandXML's namespace, in a version that is known, that LandXML does not have.
    bool IsUnknown(ElementIndex element) const;
    /// True for an element that is no object but a text of its parent's.
    bool IsTextElement(ElementIndex element) const;
    /// Whether an element is of no namespace of LandXML.
    bool IsForeign(ElementIndex element) const;
    bool HasOwnName(ElementIndex element) const { return !OwnName(element).empty(); }
    MemberName NameOfElement(ElementIndex element) const;

private:
    std::string_view OwnName(ElementIndex element) const; // as written; empty: none
    Member WithFlags(ElementIndex owner, Member member) const;
    void ListText(ElementIndex owner, const TextSource& text, bool isOnly,
                  std::vector<Member>& members) const;
    Member ChildMember(ElementIndex owner, ElementIndex child) const;
    bool IsForeign(ElementIndex owner, std::string_view attribute) const;
    bool IsLandXml(std::string_view address) const;
    TypedValue TextPartValue(ElementIndex owner, const Member& member) const;
    TypedValue TextValue(ElementIndex owner, const Member& member) const;
    TypedValue TextElementValue(ElementIndex owner, const Member& member) const;
    bool IsReplaceablePart(ElementIndex owner) const;
    bool HasPlainText(ElementIndex element) const;
    TypedValue Read(ElementIndex owner, const ValueType& type, const XmlCharacters& text) const;
    std::string DisplayName(ElementIndex element) const;

    const ElementTree& m_tree;
    LandXmlScopes m_scopes;
    ReadingOptions m_options;
    std::string_view m_rootNamespace;
};

/// Whether an attribute of this name declares a namespace.
bool DeclaresNamespace(std::string_view attribute);
/// What is before the ':' of a name; empty without one.
std::string_view PrefixOf(std::string_view name);

/// True for the namespaces of the LandXML versions and profiles whose elements this program knows.
bool IsKnownNamespace(std::string_view address);

} // namespace korvel::inspector
