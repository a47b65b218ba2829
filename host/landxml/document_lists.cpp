#include "landxml/document_lists.h"

#include "landxml/enumeration_uses.h"
#include "landxml/landxml_document.h"

#include <algorithm>
#include <set>

namespace korvel::inspector {
namespace {

constexpr std::uint32_t ListFlags = ENF_CheckBoxes | ENF_Add | ENF_Delete | ENF_Rename;
constexpr std::string_view CodeAttribute = "code";

const EnumerationUse& UseOf(const LandXmlEnumeration& enumeration) {
    const std::vector<EnumerationUse>& uses = EnumerationUses();
    return *std::find_if(uses.begin(), uses.end(),
                         [&](const EnumerationUse& use) { return use.enumeration == &enumeration; });
}

// What a document chooses from one enumeration.
struct Found {
    std::set<std::string> places; // as the title names them
    std::map<std::string, std::size_t> counts;
};

// Walks over a document and counts the words of each enumeration, and the codes.
class Search {
public:
    explicit Search(const LandXmlDocument& document)
        : m_tree(document.Tree()), m_members(document.Members()) {
        for (ElementIndex element = 0; element < m_tree.Count(); ++element) {
            VisitText(element);
            for (const XmlAttribute& attribute : m_tree.Attributes(element))
                VisitAttribute(element, attribute);
        }
    }

    const std::map<const LandXmlEnumeration*, Found>& Enumerations() const { return m_enumerations; }
    const std::map<std::string, std::size_t>& Codes() const { return m_codes; }

private:
    // Most attributes are numbers, which need not be read.
    void VisitAttribute(ElementIndex element, const XmlAttribute& attribute) {
        if (attribute.name == CodeAttribute)
            CountCode(m_members.AttributeValue(element, attribute).value.Text);
        else if (TypeOfAttribute(m_tree.LocalName(element), attribute.name).enumeration)
            Count(element, attribute.name, m_members.AttributeValue(element, attribute));
    }

    void VisitText(ElementIndex element) {
        const TextType type = TypeOfText(m_tree.LocalName(element));
        if (type.parts.size() == 1 && type.parts[0].type.enumeration)
            Count(element, {}, m_members.ValueOf(element, Member(0, MemberKind::TextPart)));
    }

    void CountCode(const std::string& code) {
        if (!code.empty())
            ++m_codes[code];
    }

    void Count(ElementIndex element, std::string_view attribute, const TypedValue& value) {
        auto* enumeration = dynamic_cast<const LandXmlEnumeration*>(value.value.EnumValue);
        if (!enumeration)
            return; // none of the words, or of another namespace
        Found& found = m_enumerations[enumeration];
        const auto& places = UseOf(*enumeration).places;
        const bool anywhere = std::find(places.begin(), places.end(), attribute) != places.end();
        std::string place(anywhere ? std::string_view() : m_tree.LocalName(element));
        place += anywhere || attribute.empty() ? "" : " ";
        found.places.insert(place.append(attribute));
        // The entry's own spelling: blanks at its ends do not count in a file.
        ++found.counts[*enumeration->WordOf(enumeration->Find(value.value.Text))];
    }

    const ElementTree& m_tree;
    const ElementMembers& m_members;
    std::map<const LandXmlEnumeration*, Found> m_enumerations;
    std::map<std::string, std::size_t> m_codes;
};

std::string Joined(const std::set<std::string>& places) {
    std::string title;
    for (const std::string& place : places)
        title += (title.empty() ? "" : ", ") + place;
    return title;
}

void MarkUsed(DocumentList& list, const std::map<std::string, std::size_t>& counts) {
    for (long id = list.words.EntryFrom(0); id != -1; id = list.words.EntryFrom(id + 1)) {
        const auto count = counts.find(*list.words.WordOf(id));
        if (count == counts.end())
            continue;
        list.words.Select(id, list.used);
        list.words.Pin(id);
        list.counts[id] = count->second;
    }
}

std::string PictureFolderOf(const LandXmlEnumeration& enumeration) {
    std::string folder(UseOf(enumeration).places.front());
    std::replace(folder.begin(), folder.end(), '@', '-');
    return folder;
}

} // namespace

DocumentList::DocumentList(const std::string& itsTitle, const std::vector<std::string>& names)
    : title(itsTitle), words(names, ListFlags), used(words.Selected({})) {}

DocumentLists::DocumentLists(const LandXmlDocument& document, const std::string& pictureFolder) {
    const Search search(document);
    std::map<std::string, std::pair<const LandXmlEnumeration*, const Found*>>
        byTitle; // places differ, and so do titles
    for (const auto& [enumeration, found] : search.Enumerations())
        byTitle[Joined(found.places)] = {enumeration, &found};
    const bool hasCodes = !search.Codes().empty();
    const std::string codeTitle(CodeAttribute);
    if (hasCodes)
        byTitle[codeTitle] = {nullptr, nullptr};
    for (const auto& [title, source] : byTitle) {
        const auto& [enumeration, found] = source;
        std::vector<std::string> names;
        if (enumeration)
            names = enumeration->Words();
        else
            for (const auto& [code, count] : search.Codes())
                names.push_back(code);
        DocumentList& list = m_lists.emplace_back(title, names);
        MarkUsed(list, enumeration ? found->counts : search.Codes());
        if (enumeration)
            list.words.SetImageFolder(pictureFolder + '/' + PictureFolderOf(*enumeration));
    }
}

} // namespace korvel::inspector
