#pragma once

#include "landxml/alignment_presentation.h"
#include "landxml/element_members.h"
#include "landxml/element_object.h"
#include "landxml/unique_member_names.h"
#include "source/document_reader.h"

#include <array>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace korvel::inspector {

/// A LandXML file as objects for the grid.
///
///     LandXmlDocument document("road.xml", {});
///     grid.Initialize(&document.Root(), "Name", "Value", 0);
///
/// The document owns its objects; it must outlive every grid that shows them. Objects are made when they are
/// first asked for and keep their address. Not for several threads at once.
class LandXmlDocument {
public:
    /// Throws DocumentError, whose text names the file, the place and what is wrong. A file that is XML but
    /// of no known LandXML version is shown all the same; see Notices.
    LandXmlDocument(const std::string& path, const ReadingOptions& options);
    LandXmlDocument(const LandXmlDocument&) = delete;
    LandXmlDocument& operator=(const LandXmlDocument&) = delete;

    /// The root element: its attributes and elements are the first level of the grid.
    ElementObject& Root() { return ObjectOf(0); }

    /// True for a document of an unknown version, where what values mean is guessed from their names, and for
    /// one whose file could not be written again as it is.
    bool IsReadOnly() const { return !m_notices.empty(); }

    /// What the user should know beside the document, in the code page of the library's texts.
    const std::vector<std::string>& Notices() const { return m_notices; }

    /// The unit of angles at the root, else of directions, as SetAngleUnit takes it; degrees for minutes and
    /// seconds, and where LandXML knows neither unit.
    char OwnAngleUnit() const;

    const ElementTree& Tree() const { return m_loaded.tree; }
    const ElementMembers& Members() const { return m_members; }
    /// The file as it was read.
    const FileForm& Form() const { return m_loaded.form; }
    const FileStamp& Stamp() const { return m_loaded.stamp; }
    std::size_t HashOfFile() const { return m_loaded.hash; }

    ElementObject& ObjectOf(ElementIndex element);

    /// Gives back the memory of an element's object, for walks over a whole document; nobody may hold it.
    void Forget(ElementIndex element);

    /// The name of an element's object: the one that it has as a member.
    const std::string& IdentOf(ElementIndex element);

    /// Valid until the names of an element outside this one are asked for.
    const UniqueMemberNames& NamesOf(ElementIndex element);

    /// The value of a member that is no object. A grid asks for the type and the value of a member one after
    /// the other, so the last value is kept. Valid until that of another member is asked for.
    const CVariantValue& ValueOf(ElementIndex element, const Member& member);

private:
    LandXmlDocument(LoadedDocument loaded, const ReadingOptions& options);

    void CheckVersion();
    bool IsLarge(ElementIndex element, const UniqueMemberNames& names) const;

    LoadedDocument m_loaded;
    ElementMembers m_members;
    std::vector<std::string> m_notices;

    std::unordered_map<ElementIndex, ElementObject> m_objects;
    std::unordered_map<ElementIndex, AlignmentPresentation> m_presentations;
    std::unordered_map<ElementIndex, std::string> m_idents;

    // A grid asks one object for all its members, and in between those for theirs: the names of small objects
    // are made again when needed, after a walk elsewhere; those of large ones are kept.
    struct RecentNames {
        ElementIndex element = NoElement;
        std::unique_ptr<UniqueMemberNames> names;
    };
    std::array<RecentNames, 64> m_recentNames;
    std::unordered_map<ElementIndex, std::unique_ptr<UniqueMemberNames>> m_namesOfLarge;

    ElementIndex m_lastElement = NoElement;
    Member m_lastMember{0, MemberKind::Object};
    CVariantValue m_lastValue;
};

} // namespace korvel::inspector
