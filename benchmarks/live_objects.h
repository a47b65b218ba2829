#pragma once

#include "korvel/values/member_dispatch.h"

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

/// The objects that every tree of the comparison shows: groups of doubles, asked by name as a host's are.
namespace bench {

/// One group: members m0, m1, … with a double each.
class LiveGroup : public korvel::IMemberDispatch {
public:
    LiveGroup(std::string ident, int members, int seed) : m_ident(std::move(ident)) {
        m_Options = korvel::DO_KeepOrder;
        m_values.reserve(static_cast<std::size_t>(members));
        for (int i = 0; i < members; ++i)
            m_values.push_back(seed * 1000.0 + i * 1.2345);
    }

    static std::string NameOf(int member) { return "m" + std::to_string(member); }
    int Count() const { return static_cast<int>(m_values.size()); }
    double ValueOf(int member) const { return m_values[static_cast<std::size_t>(member)]; }

    const std::string& GetIdent() const override { return m_ident; }
    void GetMemberNames(std::list<std::string>& names) override {
        names.clear();
        for (int i = 0; i < Count(); ++i)
            names.push_back(NameOf(i));
    }
    bool GetMemberType(const std::string& name, korvel::EDataTyps& type) override {
        type = korvel::DT_Double;
        return Find(name) != nullptr;
    }
    bool IsMemberEditable(const std::string& name) override { return Find(name) != nullptr; }
    bool SetMemberEditable(const std::string&, const bool&) override { return false; }
    bool GetMember(const std::string& name, korvel::CVariantValue& value) override {
        const double* number = Find(name);
        if (!number)
            return false;
        value = {};
        value.Type = korvel::DT_Double;
        value.Value.Double = *number;
        return true;
    }
    bool SetMember(const std::string& name, const korvel::CVariantValue& value) override {
        double* number = Find(name);
        if (number)
            *number = value.Value.Double;
        return number != nullptr;
    }
    bool AddMember(const std::string&, bool, const korvel::CVariantValue&) override { return false; }
    bool RemoveMember(const std::string&) override { return false; }
    bool RenameMember(const std::string&, const std::string&) override { return false; }
    bool ChangeMemberType(const std::string&, const korvel::EDataTyps&) override { return false; }
    void SetIdent(const std::string& ident) override { m_ident = ident; }

private:
    double* Find(const std::string& name) {
        const auto member = static_cast<std::size_t>(std::atoi(name.c_str() + 1));
        return member < m_values.size() ? &m_values[member] : nullptr;
    }

    std::string m_ident;
    std::vector<double> m_values;
};

/// The root: `groups` groups that share `members` members.
class LiveRoot : public LiveGroup {
public:
    LiveRoot(int groups, int members) : LiveGroup("root", 0, 0) {
        for (int i = 0; i < groups; ++i) {
            m_groups.push_back(
                std::make_unique<LiveGroup>("group " + std::to_string(i), members / groups, i));
        }
    }

    int GroupCount() const { return static_cast<int>(m_groups.size()); }
    LiveGroup& Group(int index) { return *m_groups[static_cast<std::size_t>(index)]; }

    void GetMemberNames(std::list<std::string>& names) override {
        names.clear();
        for (const auto& group : m_groups)
            names.push_back(group->GetIdent());
    }
    bool GetMember(const std::string& name, korvel::CVariantValue& value) override {
        const auto index = static_cast<std::size_t>(std::atoi(name.c_str() + sizeof("group")));
        if (index >= m_groups.size())
            return false;
        value = {};
        value.Type = korvel::DT_Group;
        value.Value.Dispatch = m_groups[index].get();
        return true;
    }
    bool GetMemberType(const std::string&, korvel::EDataTyps& type) override {
        type = korvel::DT_Group;
        return true;
    }

private:
    std::vector<std::unique_ptr<LiveGroup>> m_groups;
};

} // namespace bench
