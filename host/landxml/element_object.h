#pragma once

#include "korvel/values/member_dispatch.h"
#include "source/element_tree.h"

namespace korvel::inspector {

class LandXmlDocument;
struct Member;

/// An element as an object of the grid: 48 bytes. Everything else is read from the document when it is asked
/// for; see ElementMembers for what the members are.
///
/// What is written goes into the document, see MemberWriter. IsMemberEditable is true for the values that can
/// be replaced in place in the file, for the grid greys all others: those that are cut, those that comments
/// or sections interrupt, namespaces, and all of a document of an unknown version. Only attributes can be
/// added and removed; the row of a child is renamed by its attribute `name`, without which it cannot be. A
/// type is changed, and a member protected, for this run only. What ElementExtras adds is the last member,
/// which can be removed.
class ElementObject final : public IMemberDispatch {
public:
    ElementObject(LandXmlDocument& document, ElementIndex element);

    ElementIndex Element() const { return m_element; }
    LandXmlDocument& Document() const { return m_document; }

    const std::string& GetIdent() const override;
    void GetMemberNames(std::list<std::string>& names) override;
    bool GetMemberType(const std::string& name, EDataTyps& type) override;
    bool IsMemberEditable(const std::string& name) override;
    bool GetMember(const std::string& name, CVariantValue& value) override;

    std::uint32_t GetMemberFlags(const std::string& name) override;
    std::uint32_t GetEditFlags() const override;
    std::string GetMemberLabel(const std::string& name) const override;
    bool OnRenameMember(const char* name, const char* newName) override;

    bool SetMemberEditable(const std::string& name, const bool& editable) override;
    bool SetMember(const std::string& name, const CVariantValue& value) override;
    bool AddMember(const std::string& name, bool editable, const CVariantValue& value) override;
    bool RemoveMember(const std::string& name) override;
    bool RenameMember(const std::string& name, const std::string& newName) override;
    bool ChangeMemberType(const std::string& name, const EDataTyps& type) override;
    void SetIdent(const std::string& ident) override;

    bool OnRemoveMember(const char* name) override;
    void GetCommands(std::list<SCommand>& commands) override;
    void GetMemberExtraCommands(const std::string& name, std::list<SCommand>& commands) override;
    bool OnCommand(std::uint32_t id) override;
    bool OnMemberCommand(const std::string& name, std::uint32_t id) override;

private:
    /// The added object where it has this name, else null.
    IMemberDispatch* FindAdded(const std::string& name) const;
    bool IsReplaceable(const Member& member) const;

    ElementIndex m_element;
    LandXmlDocument& m_document;
};

} // namespace korvel::inspector
