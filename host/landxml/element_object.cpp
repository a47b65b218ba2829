#include "landxml/element_object.h"

#include "landxml/landxml_document.h"

#include <utility>

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
}

bool ElementObject::GetMemberType(const std::string& name, EDataTyps& type) {
    CVariantValue value;
    if (!GetMember(name, value))
        return false;
    type = value.Type;
    return true;
}

bool ElementObject::IsMemberEditable(const std::string& name) {
    const std::optional<Member> member = m_document.NamesOf(m_element).Find(name);
    return member && !m_document.IsReadOnly() && m_document.Members().IsReplaceable(m_element, *member);
}

bool ElementObject::GetMember(const std::string& name, CVariantValue& value) {
    const std::optional<Member> member = m_document.NamesOf(m_element).Find(name);
    if (!member)
        return false;
    if (member->kind != MemberKind::Object) {
        value = m_document.ValueOf(m_element, *member);
        return true;
    }
    value = CVariantValue();
    value.Type = DT_Group;
    value.Value.Dispatch = &m_document.ObjectOf(member->place);
    return true;
}

bool ElementObject::SetMemberEditable(const std::string&, const bool&) {
    return false;
}

bool ElementObject::SetMember(const std::string&, const CVariantValue&) {
    return false;
}

bool ElementObject::AddMember(const std::string&, bool, const CVariantValue&) {
    return false;
}

bool ElementObject::RemoveMember(const std::string&) {
    return false;
}

bool ElementObject::RenameMember(const std::string&, const std::string&) {
    return false;
}

bool ElementObject::ChangeMemberType(const std::string&, const EDataTyps&) {
    return false;
}

void ElementObject::SetIdent(const std::string&) {}

} // namespace korvel::inspector
