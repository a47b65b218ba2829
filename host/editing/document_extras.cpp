#include "editing/document_extras.h"

#include "landxml/landxml_document.h"
#include "landxml/station_table.h"
#include "texts/program_texts.h"

namespace korvel::inspector {
namespace {

enum Command : std::uint32_t { CopyStations = 1, ComputeStatistics };
enum MemberCommand : std::uint32_t { CopyPath = 1, CopyAsInFile };

struct ElementCommand {
    std::string_view element;
    ProgramText text;
    Command command;
};
constexpr ElementCommand ElementCommands[] = {
    {"Alignment", TheProgramTexts.copyStations, CopyStations},
    {"Surface", TheProgramTexts.statistics, ComputeStatistics},
};

} // namespace

DocumentExtras::DocumentExtras(LandXmlDocument& document, EditObserver& observer)
    : m_document(document), m_statistics(document, observer) {
    m_document.SetExtras(this);
}

DocumentExtras::~DocumentExtras() {
    m_document.SetExtras(nullptr);
}

void DocumentExtras::ListCommands(ElementIndex element, std::list<SCommand>& commands) {
    for (const ElementCommand& offered : ElementCommands)
        if (m_document.Tree().LocalName(element) == offered.element)
            commands.push_back({InCodePage(offered.text), offered.command});
}

void DocumentExtras::ListMemberCommands(ElementIndex owner, const std::string& name,
                                        std::list<SCommand>& commands) {
    if (!m_document.NamesOf(owner).Find(name))
        return;
    commands.push_back({InCodePage(TheProgramTexts.copyPath), CopyPath});
    commands.push_back({InCodePage(TheProgramTexts.copyAsInFile), CopyAsInFile});
}

bool DocumentExtras::Run(ElementIndex element, std::uint32_t id) {
    std::list<SCommand> offered;
    ListCommands(element, offered);
    if (offered.empty() || offered.front().id != id)
        return false;
    if (id == CopyStations) {
        Copy(StationTable(m_document, element));
        return true;
    }
    m_statistics.Start(element);
    if (m_hooks.open)
        m_hooks.open(m_document.ObjectOf(element), NameOfAdded());
    return true;
}

bool DocumentExtras::RunOnMember(ElementIndex owner, const std::string& name, std::uint32_t id) {
    const std::optional<Member> member = m_document.NamesOf(owner).Find(name);
    if (!member || (id != CopyPath && id != CopyAsInFile))
        return false;
    Copy(id == CopyPath ? PathOf(owner, name) : AsInFile(owner, *member));
    return true;
}

void DocumentExtras::Copy(const std::string& text) const {
    if (m_hooks.copy)
        m_hooks.copy(text);
}

// As --expand and --set take it.
std::string DocumentExtras::PathOf(ElementIndex owner, const std::string& name) const {
    std::string path = name;
    for (ElementIndex element = owner; element != 0; element = m_document.Tree().Parent(element))
        path = m_document.NamesOf(m_document.Tree().Parent(element)).NameOfChild(element) + '/' + path;
    return path;
}

std::string DocumentExtras::AsInFile(ElementIndex owner, const Member& member) const {
    return ToLibraryText(member.kind == MemberKind::Object
                             ? m_document.Tree().EditedText(member.place)
                             : m_document.Members().CharactersOf(owner, member, ReadingOptions::All).utf8);
}

} // namespace korvel::inspector
