#pragma once

#include "korvel/values/enum_value.h"
#include "korvel/values/file_value.h"
#include "korvel/values/member_dispatch.h"

#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace korvel {

/// An object of which whoever keeps a pointer can see that it is gone.
class MortalObject {
public:
    MortalObject() = default;
    MortalObject(const MortalObject&) = delete;
    MortalObject& operator=(const MortalObject&) = delete;

    /// Expires when the object is destroyed.
    std::weak_ptr<const void> GetLife() const {
        if (!m_life)
            m_life = std::make_shared<const char>();
        return m_life;
    }

protected:
    ~MortalObject() = default;
    void EndLife() { m_life.reset(); }

private:
    mutable std::shared_ptr<const char> m_life; // made when first asked for
};

/// An object that keeps its members itself, in the order of their insertion. `T` names the owning class.
///
///     TMemberDispatchImp<Axis> axis("Axis 3");
///     axis.AddMember("length", true, length);
///     axis.SetMember("length", text);   // false: a text shares no type bit with a length
///
///     TMemberDispatchImp<Point> start("start");
///     CVariantValue group;              // a nested object is a value of type DT_Group
///     group.Type = DT_Group;
///     group.Value.Dispatch = &start;
///     axis.AddMember("start", true, group);
///
/// A name may occur twice; look-ups then find the first. Removing a member never deletes what it holds;
/// destroying the object calls IsAutoDestroy of every value that it holds and deletes those that return true.
/// A nested TMemberDispatchImp may die before: its member then holds null. Nested objects of other
/// classes, enumerations and file values must outlive the object, which is to be declared after them.
template <typename T>
class TMemberDispatchImp : public IMemberDispatch, public MortalObject {
public:
    explicit TMemberDispatchImp(std::string ident = {}) : m_Ident(std::move(ident)) {}
    ~TMemberDispatchImp() override {
        EndLife(); // what is destroyed below may hold this object
        for (Member& member : m_members) {
            ForgetDead(member);
            DestroyValue(member.value);
        }
    }

    const std::string& GetIdent() const override { return m_Ident; }
    void SetIdent(const std::string& ident) override { m_Ident = ident; }

    void GetMemberNames(std::list<std::string>& names) override {
        names.clear();
        for (const Member& member : m_members)
            names.push_back(member.name);
    }

    bool GetMemberType(const std::string& name, EDataTyps& type) override {
        const Member* member = Find(name);
        if (!member)
            return false;
        type = member->value.Type;
        return true;
    }

    bool IsMemberEditable(const std::string& name) override {
        const Member* member = Find(name);
        return member && member->editable;
    }

    bool SetMemberEditable(const std::string& name, const bool& editable) override {
        Member* member = Find(name);
        if (!member)
            return false;
        member->editable = editable;
        return true;
    }

    bool GetMember(const std::string& name, CVariantValue& value) override {
        const Member* member = Find(name);
        if (!member)
            return false;
        value = member->value;
        return true;
    }

    /// One common type bit is enough: a type may change to another that shares a bit with it. A common bit in
    /// the sign position alone does not count.
    bool SetMember(const std::string& name, const CVariantValue& value) override {
        Member* member = Find(name);
        if (!member || static_cast<std::int32_t>(member->value.Type & value.Type) < 1)
            return false;
        Store(*member, value);
        return true;
    }

    /// Never refuses, not even a name that is there already.
    bool AddMember(const std::string& name, bool editable, const CVariantValue& value) override {
        std::list<Member> added;
        added.push_back({.name = name, .editable = editable});
        Store(added.front(), value);
        m_index.emplace(added.front().name, added.begin());
        m_members.splice(m_members.end(), added);
        return true;
    }

    bool RemoveMember(const std::string& name) override {
        const auto entry = FindEntry(name);
        if (entry == m_index.end())
            return false;
        const auto member = entry->second;
        m_index.erase(entry);
        m_members.erase(member);
        return true;
    }

    /// False also when a member called `newName` exists, be it the same one, and for a nested object that
    /// does not let its name be changed. A nested object takes the new name as its own.
    bool RenameMember(const std::string& name, const std::string& newName) override {
        const auto entry = FindEntry(name);
        if (entry == m_index.end() || Find(newName))
            return false;
        Member& member = *entry->second;
        ForgetDead(member);
        std::string stored = newName; // nothing may throw once the index lets go of the member
        if (member.value.Type == DT_Group) {
            IMemberDispatch* object = member.value.Value.Dispatch;
            if (!object || !(object->GetEditFlags() & EF_Rename))
                return false;
            object->SetIdent(newName);
        }
        auto node = m_index.extract(entry);
        member.name.swap(stored);
        node.key() = member.name;
        m_index.insert(std::move(node));
        return true;
    }

    bool ChangeMemberType(const std::string& name, const EDataTyps& type) override {
        Member* member = Find(name);
        if (!member)
            return false;
        Store(*member, member->value.ChangeToType(type));
        return true;
    }

private:
    struct Member {
        std::string name;
        bool editable = false;
        bool isMortal = false; // `life` is that of the nested object
        CVariantValue value = {};
        std::weak_ptr<const void> life = {};
    };

    static void Store(Member& member, const CVariantValue& value) {
        member.value = value;
        const auto* mortal =
            value.Type == DT_Group ? dynamic_cast<const MortalObject*>(value.Value.Dispatch) : nullptr;
        member.isMortal = mortal != nullptr;
        member.life = mortal ? mortal->GetLife() : std::weak_ptr<const void>();
    }

    static void ForgetDead(Member& member) {
        if (member.isMortal && member.life.expired())
            member.value.Value.Dispatch = nullptr;
    }

    // By views of the members' own names. Members of one name are in the order of the list: a second one
    // only comes by being added at its end.
    using Index = std::multimap<std::string_view, typename std::list<Member>::iterator>;

    typename Index::iterator FindEntry(const std::string& name) {
        const auto entry = m_index.lower_bound(name);
        return entry != m_index.end() && entry->first == name ? entry : m_index.end();
    }

    Member* Find(const std::string& name) {
        const auto entry = FindEntry(name);
        if (entry == m_index.end())
            return nullptr;
        ForgetDead(*entry->second);
        return &*entry->second;
    }

    static void DestroyValue(CVariantValue& value) {
        if (value.Type == DT_Group) {
            if (value.Value.Dispatch && value.Value.Dispatch->IsAutoDestroy())
                delete std::exchange(value.Value.Dispatch, nullptr);
        } else if (value.Type == DT_FileName) {
            if (value.EnumContext && value.EnumContext->IsAutoDestroy())
                delete std::exchange(value.EnumContext, nullptr);
        } else if (value.Type & TypeBitList) {
            if (value.EnumValue && value.EnumValue->IsAutoDestroy())
                std::exchange(value.EnumValue, nullptr)->Destroy();
        }
    }

    std::list<Member> m_members;
    std::string m_Ident;
    Index m_index; // without it, reading an object member by member would cost the square of their number
};

} // namespace korvel
