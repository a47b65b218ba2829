#pragma once

#include "landxml/alignment_presentation.h"
#include "landxml/document_change.h"
#include "landxml/element_members.h"
#include "landxml/element_object.h"
#include "landxml/member_name_cache.h"
#include "source/document_reader.h"
#include "source/xml_escaping.h"

#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace korvel::inspector {

class ElementExtras;

/// A LandXML file as objects for the grid.
///
///     LandXmlDocument document("road.xml", {});
///     grid.Initialize(&document.Root(), "Name", "Value", 0);
///
/// Whoever writes to a member of an object changes the document; a listener hears of it, and may put back
/// what was there. The source stays as it is beside the edits, see ElementTree.
///
/// The document owns its objects; it must outlive every grid that shows them. Objects are made when they are
/// first asked for and keep their address. Not for several threads at once.
class LandXmlDocument {
public:
    /// Throws DocumentError, whose text names the file, the place and what is wrong. A file that is XML but
    /// of no known LandXML version is shown all the same; see Notices. Throws ReadingCancelled when `progress`
    /// does.
    LandXmlDocument(const std::string& path, const ReadingOptions& options,
                    ReadingProgress* progress = nullptr);
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
    /// Null where it was never asked for.
    ElementObject* FindObject(ElementIndex element);

    /// Gives back the memory of an element's object, for walks over a whole document; nobody may hold it.
    void Forget(ElementIndex element);

    /// See MemberNameCache.
    const std::string& IdentOf(ElementIndex element) { return m_names.IdentOf(element); }
    const UniqueMemberNames& NamesOf(ElementIndex element, PhaseProgress* progress = nullptr) {
        return m_names.NamesOf(element, progress);
    }

    /// The member of a name. A grid asks several things of one member in a row, so the last one is kept.
    const std::optional<Member>& FindMember(ElementIndex element, const std::string& name);

    /// The value of a member that is no object. A grid asks for the type and the value of a member one after
    /// the other, so the last value is kept. Valid until that of another member is asked for.
    const CVariantValue& ValueOf(ElementIndex element, const Member& member);

    /// What the text of a member means, as the file and as the user says.
    ValueType TypeOf(ElementIndex element, const Member& member) const;
    MemberAddress AddressOf(ElementIndex element, const Member& member) const;
    /// Those of an element; none where the user has made nothing of its members.
    const MemberSessions& SessionsOf(ElementIndex element) const;
    MemberSession SessionOf(const MemberAddress& address) const;

    /// Whether the file can hold a character; every one at first.
    void SetCharacterTest(CharacterTest test) { m_characterTest = std::move(test); }
    const CharacterTest& GetCharacterTest() const { return m_characterTest; }

    /// Called with the element that each value is read from; empty: nobody wants to hear. It may end a binding
    /// of the grid that reads.
    using ReadHook = std::function<void(ElementIndex element)>;
    void SetReadHook(ReadHook hook) { m_readHook = std::move(hook); }
    void TellRead(ElementIndex element) const {
        if (m_readHook)
            m_readHook(element);
    }

    /// What is added to the elements, or null; it must outlive the document or be taken back.
    void SetExtras(ElementExtras* extras) { m_extras = extras; }
    ElementExtras* Extras() const { return m_extras; }

    /// The one that hears of changes, or null; it must outlive the document or be taken back.
    void SetListener(DocumentListener* listener) { m_listener = listener; }
    enum class Side { Before, After };
    /// Makes an element as it is on one side of a change.
    void Put(const DocumentChange& change, Side side);
    /// The element whose members a change is among.
    ElementIndex OwnerOf(const DocumentChange& change) const;
    /// How far a change reaches from the members of that element.
    ElementMembers::Reach ReachOf(const DocumentChange& change) const;

private:
    LandXmlDocument(LoadedDocument loaded, const ReadingOptions& options);

    void CheckVersion();
    CVariantValue ReadValueOf(ElementIndex element, const Member& member) const;
    void Write(const DocumentChange& change, const DocumentChange::State& state);
    void FollowNames(const DocumentChange& change);

    LoadedDocument m_loaded;
    ElementMembers m_members;
    MemberNameCache m_names;
    std::vector<std::string> m_notices;
    std::unordered_map<ElementIndex, MemberSessions> m_sessions;
    CharacterTest m_characterTest;
    DocumentListener* m_listener = nullptr;
    ElementExtras* m_extras = nullptr;

    std::unordered_map<ElementIndex, ElementObject> m_objects;
    std::unordered_map<ElementIndex, AlignmentPresentation> m_presentations;

    ReadHook m_readHook;

    ElementIndex m_lastFoundIn = NoElement;
    std::string m_lastFoundName;
    std::optional<Member> m_lastFound;

    ElementIndex m_lastElement = NoElement;
    Member m_lastMember{0, MemberKind::Object};
    CVariantValue m_lastValue;
};

} // namespace korvel::inspector
