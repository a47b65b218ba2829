#include "editing/member_news.h"

#include "editing/edit_observer.h"
#include "editing/renames.h"
#include "korvel/platform/first_failure.h"
#include "landxml/landxml_document.h"

#include <algorithm>

namespace korvel::inspector {

void MemberNews::Remember(const DocumentChange& change) {
    const ElementIndex owner = m_document.OwnerOf(change);
    if (owner != change.element) {
        m_textElements.emplace(owner, change.element);
        if (KeepsItsName(change))
            return;
    }
    RememberObject(owner);
    const ElementMembers::Reach reach = m_document.ReachOf(change);
    if (reach.parent)
        RememberObject(m_document.Tree().Parent(change.element));
    if (reach.units || reach.stations)
        RememberAll();
}

// Only the mark of an invalid one is in the name of a text element.
bool MemberNews::KeepsItsName(const DocumentChange& change) const {
    const auto isValid = [&](const std::string& raw) {
        return m_document.Members().IsTextOf(change.element, DecodeXmlText(raw, std::string::npos).utf8);
    };
    return isValid(change.before.written) == isValid(change.after.written);
}

void MemberNews::RememberObject(ElementIndex element) {
    if (!m_before.contains(element) && m_observer.IsShown(m_document.FindObject(element)))
        m_before.emplace(element, StateOf(m_document, element));
}

// An object that only holds others has nothing that units or stations could change.
void MemberNews::RememberAll() {
    const ElementTree& tree = m_document.Tree();
    for (const IMemberDispatch* shown : m_observer.ShownObjects()) {
        const auto* object = dynamic_cast<const ElementObject*>(shown);
        if (object && m_document.FindObject(object->Element()) == object &&
            (!tree.Attributes(object->Element()).empty() || !tree.Texts(object->Element()).empty()))
            RememberObject(object->Element());
    }
}

void MemberNews::Tell() {
    const std::map<ElementIndex, ObjectState> before = std::exchange(m_before, {});
    const auto textElements = std::exchange(m_textElements, {});
    internal::FirstFailure failure;
    for (const auto& [element, state] : before)
        failure.Try([&, e = element, &s = state] { TellObject(e, s); });
    for (const auto& [owner, element] : textElements)
        failure.Try([&, o = owner, e = element] { TellTextElement(o, e); });
    failure.Try([&] { TellSaidValues(); });
    failure.Rethrow();
}

void MemberNews::TellObject(ElementIndex element, const ObjectState& before) {
    const ElementObject* object = m_document.FindObject(element);
    if (!m_observer.IsShown(object))
        return;
    const ObjectState after = StateOf(m_document, element);
    const PairedStates paired(before, after);
    const auto isUnpaired = [](const std::vector<std::size_t>& indexes) {
        return std::find(indexes.begin(), indexes.end(), PairedStates::None) != indexes.end();
    };
    m_areCountsChanged |= isUnpaired(paired.newIndex) || isUnpaired(paired.oldIndex);
    const auto tell = [&](const auto& say) { m_observer.Tell(object, say); };

    std::vector<NameChange> renames;
    for (std::size_t i = 0; i < before.members.size(); ++i) {
        const MemberState& old = before.members[i];
        if (paired.newIndex[i] == PairedStates::None)
            tell([&](IObserverGridSink& sink) { sink.OnOperationRemove(old.name, old.value); });
        else if (const std::string& name = after.members[paired.newIndex[i]].name; name != old.name)
            renames.emplace_back(old.name, name);
    }
    for (const NameChange& rename : InOrder(std::move(renames)))
        tell([&](IObserverGridSink& sink) { sink.OnOperationRename(rename.first, rename.second); });
    for (std::size_t i = 0; i < after.members.size(); ++i) {
        const MemberState& member = after.members[i];
        if (paired.oldIndex[i] == PairedStates::None) {
            tell([&](IObserverGridSink& sink) { sink.OnOperationInsert(i, member.name, member.value); });
            continue;
        }
        const MemberState& old = before.members[paired.oldIndex[i]];
        if (old.value.Type != member.value.Type)
            tell([&](IObserverGridSink& sink) {
                sink.OnOperationChangeType(member.name, old.value.Type, member.value);
            });
        else if (!(old.value == member.value))
            tell([&](IObserverGridSink& sink) { sink.OnChange(member.name, member.value); });
        if (old.isEditable != member.isEditable)
            tell([&](IObserverGridSink& sink) { sink.OnChangeEditFlag(member.name, member.isEditable); });
    }
    if (after.presentation && after.presentation != before.presentation)
        tell([&](IObserverGridSink& sink) { sink.OnOperationChangeTupelPresentation(*after.presentation); });
}

void MemberNews::TellTextElement(ElementIndex owner, ElementIndex element) {
    ElementObject* object = m_document.FindObject(owner);
    if (!m_observer.IsShown(object))
        return;
    const std::string name = m_document.NamesOf(owner).NameOfChild(element);
    CVariantValue value;
    if (!object->GetMember(name, value))
        return;
    const bool isEditable = object->IsMemberEditable(name);
    m_observer.Tell(object, [&](IObserverGridSink& sink) {
        sink.OnChange(name, value);
        sink.OnChangeEditFlag(name, isEditable);
    });
}

// A grid has shown what the user wrote, its object may have taken it in another form.
void MemberNews::TellSaidValues() {
    for (const EditObserver::SaidValue& said : m_observer.TakeSaidValues()) {
        CVariantValue value;
        if (m_observer.IsShown(said.object) && said.object->GetMember(said.name, value) &&
            !(value == said.value))
            m_observer.Tell(said.object, [&](IObserverGridSink& sink) { sink.OnChange(said.name, value); });
    }
}

} // namespace korvel::inspector
