#include "landxml/element_object.h"

#include "landxml/element_extras.h"
#include "landxml/landxml_document.h"
#include "landxml/member_writer.h"

namespace korvel::inspector {

ElementObject::ElementObject(LandXmlDocument& document, ElementIndex element)
    : m_element(element), m_document(document) {
    SetOptions(DO_KeepOrder);
}

const std::string& ElementObject::GetIdent() const {
    return m_document.IdentOf(m_element);
}

void ElementObject::GetMemberNames(std::list<std::string>& names) {
    names.clear();
    const UniqueMemberNames& own = m_document.NamesOf(m_element);
    for (std::size_t i = 0; i < own.Count(); ++i)
        names.push_back(own.NameAt(i));
    if (m_document.Extras() && m_document.Extras()->AddedTo(m_element))
        names.push_back(m_document.Extras()->NameOfAdded());
}

IMemberDispatch* ElementObject::FindAdded(const std::string& name) const {
    ElementExtras* extras = m_document.Extras();
    return extras && name == extras->NameOfAdded() ? extras->AddedTo(m_element) : nullptr;
}

bool ElementObject::GetMemberType(const std::string& name, EDataTyps& type) {
    CVariantValue value;
    if (!GetMember(name, value))
        return false;
    type = value.Type;
    return true;
}

bool ElementObject::IsReplaceable(const Member& member) const {
    return !m_document.IsReadOnly() && m_document.Members().IsReplaceable(m_element, member);
}

bool ElementObject::IsMemberEditable(const std::string& name) {
    const std::optional<Member> member = m_document.FindMember(m_element, name);
    return member && IsReplaceable(*member) &&
           !m_document.SessionOf(m_document.AddressOf(m_element, *member)).isProtected;
}

bool ElementObject::GetMember(const std::string& name, CVariantValue& value) {
    const std::optional<Member> member = m_document.FindMember(m_element, name);
    const bool isChild =
        member && (member->kind == MemberKind::Object || member->kind == MemberKind::TextElement);
    m_document.TellRead(isChild ? member->place : m_element);
    IMemberDispatch* added = member ? nullptr : FindAdded(name);
    if (!member && !added)
        return false;
    if (member && member->kind != MemberKind::Object) {
        value = m_document.ValueOf(m_element, *member);
        return true;
    }
    value = CVariantValue();
    value.Type = DT_Group;
    value.Value.Dispatch = added ? added : &m_document.ObjectOf(member->place);
    return true;
}

std::uint32_t ElementObject::GetMemberFlags(const std::string& name) {
    const std::optional<Member> member = m_document.FindMember(m_element, name);
    if (!member)
        return FindAdded(name) ? std::uint32_t{MF_Delete} : 0;
    const bool isChild = member->kind == MemberKind::Object;
    const EDataTyps type = isChild ? DT_Group : m_document.ValueOf(m_element, *member).Type;
    std::uint32_t flags = m_document.Extras() ? std::uint32_t{MF_Commands} : 0;
    if (type == DT_FileName)
        flags |= MF_File;
    if (isChild && (m_document.ObjectOf(member->place).GetEditFlags() & EF_Rename) != 0)
        flags |= MF_Rename;
    if (!IsReplaceable(*member))
        return flags;
    flags |= MF_WriteProtect;
    if (MemberWriter(m_document, m_element).NumberOf(*member))
        flags |= MF_ChangeType;
    if (member->kind == MemberKind::Attribute)
        flags |= MF_Delete | MF_Rename;
    return flags;
}

std::uint32_t ElementObject::GetEditFlags() const {
    std::list<SCommand> commands;
    if (m_document.Extras())
        m_document.Extras()->ListCommands(m_element, commands);
    std::uint32_t flags = commands.empty() ? 0 : std::uint32_t{EF_Commands};
    if (m_document.IsReadOnly())
        return flags;
    flags |= EF_Add;
    if (m_document.Tree().FindAttribute(m_element, "name").data() != nullptr)
        flags |= EF_Rename;
    return flags;
}

std::string ElementObject::GetMemberLabel(const std::string& name) const {
    return MemberWriter(m_document, m_element).LabelOf(name).value_or(name);
}

// A label that the user leaves as it is would be refused as the name of another member.
bool ElementObject::OnRenameMember(const char* name, const char* newName) {
    return MemberWriter(m_document, m_element).LabelOf(name) == std::optional<std::string>(newName);
}

bool ElementObject::SetMemberEditable(const std::string& name, const bool& editable) {
    return MemberWriter(m_document, m_element).Protect(name, !editable);
}

bool ElementObject::SetMember(const std::string& name, const CVariantValue& value) {
    return MemberWriter(m_document, m_element).Set(name, value);
}

bool ElementObject::AddMember(const std::string& name, bool editable, const CVariantValue& value) {
    return MemberWriter(m_document, m_element).Add(name, editable, value);
}

bool ElementObject::RemoveMember(const std::string& name) {
    return MemberWriter(m_document, m_element).Remove(name);
}

bool ElementObject::RenameMember(const std::string& name, const std::string& newName) {
    return MemberWriter(m_document, m_element).Rename(name, newName);
}

bool ElementObject::ChangeMemberType(const std::string& name, const EDataTyps& type) {
    return MemberWriter(m_document, m_element).ChangeType(name, type);
}

void ElementObject::SetIdent(const std::string& ident) {
    MemberWriter(m_document, m_element).SetOwnName(ident);
}

bool ElementObject::OnRemoveMember(const char* name) {
    if (!FindAdded(name))
        return false;
    m_document.Extras()->RemoveAdded(m_element);
    return true;
}

void ElementObject::GetCommands(std::list<SCommand>& commands) {
    if (m_document.Extras())
        m_document.Extras()->ListCommands(m_element, commands);
}

void ElementObject::GetMemberExtraCommands(const std::string& name, std::list<SCommand>& commands) {
    if (m_document.Extras())
        m_document.Extras()->ListMemberCommands(m_element, name, commands);
}

bool ElementObject::OnCommand(std::uint32_t id) {
    return m_document.Extras() && m_document.Extras()->Run(m_element, id);
}

bool ElementObject::OnMemberCommand(const std::string& name, std::uint32_t id) {
    return m_document.Extras() && m_document.Extras()->RunOnMember(m_element, name, id);
}

} // namespace korvel::inspector
