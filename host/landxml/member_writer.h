#pragma once

#include "korvel/values/variant_value.h"
#include "landxml/document_change.h"
#include "landxml/element_members.h"

#include <optional>
#include <string>
#include <string_view>

namespace korvel::inspector {

class LandXmlDocument;

/// Writes to the members of one element, for whoever holds its object: each write is one DocumentChange; a
/// write that changes nothing is none. False where there is no such member, or for a value of a kind that the
/// member cannot hold. Throws Error with the reason for what the file must not become; nothing is written
/// then.
class MemberWriter {
public:
    MemberWriter(LandXmlDocument& document, ElementIndex owner) : m_document(document), m_owner(owner) {}

    bool Set(const std::string& name, const CVariantValue& value);
    bool Protect(const std::string& name, bool isProtected);
    bool ChangeType(const std::string& name, EDataTyps type);
    /// The member as a number: the value shown, else what its text in the file reads as. Nothing else can be
    /// given another type.
    std::optional<CVariantValue> NumberOf(const Member& member) const;

    // Of attributes.
    bool Add(const std::string& name, bool isEditable, const CVariantValue& value);
    bool Remove(const std::string& name);
    /// Renames an attribute, or changes the attribute `name` of a child.
    bool Rename(const std::string& name, const std::string& newName);

    /// What can be renamed of a member: the attribute's name, or the child's attribute `name`; nothing for
    /// others.
    std::optional<std::string> LabelOf(const std::string& name) const;
    /// Sets the attribute `name` of the element itself.
    void SetOwnName(const std::string& name);

private:
    std::optional<Member> Find(const std::string& name) const;
    void RequireWritable() const;
    void RequireReplaceable(const std::string& name, const Member& member) const;
    void RequireNewAttribute(const std::string& name) const;
    bool IsAllowed(const Member& member, const ValueType& type, const std::string& text) const;
    bool IsAllowed(const ValueType& type, const std::string& text) const;
    std::string AttributeName(const Member& member) const;
    DocumentChange Begin(DocumentChange::Kind kind, const std::string& name,
                         const MemberAddress& address) const;
    DocumentChange BeginWith(DocumentChange::Kind kind, const std::string& name, const Member& member) const;
    void WriteText(DocumentChange& change, const Member& member, const std::string& text) const;
    void Finish(DocumentChange change);

    LandXmlDocument& m_document;
    ElementIndex m_owner;
};

} // namespace korvel::inspector
