#pragma once

#include "korvel/values/member_dispatch.h"

#include <functional>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace korvel::inspector {

/// Rows of results, in the order in which they came. Another thread than that of the grids may put them; no
/// lock is held while anything else is called, so whoever puts them may tell the grids.
class StatisticsObject final : public IMemberDispatch {
public:
    /// `endThread` makes sure that no other thread begins a call of a sink of the object any more; it is called
    /// before a grid lets go of one, on its thread, perhaps within such a call.
    StatisticsObject(std::string ident, std::function<void()> endThread);
    void EndThread() const { m_endThread(); }

    // Any thread.
    /// True for a name that was not there yet.
    bool Put(const std::string& name, const CVariantValue& value);
    void Drop(const std::string& name);

    const std::string& GetIdent() const override { return m_ident; }
    void GetMemberNames(std::list<std::string>& names) override;
    bool GetMemberType(const std::string& name, EDataTyps& type) override;
    bool GetMember(const std::string& name, CVariantValue& value) override;

    // Results are not written by anybody else.
    bool IsMemberEditable(const std::string&) override { return false; }
    bool SetMemberEditable(const std::string&, const bool&) override { return false; }
    bool SetMember(const std::string&, const CVariantValue&) override { return false; }
    bool AddMember(const std::string&, bool, const CVariantValue&) override { return false; }
    bool RemoveMember(const std::string&) override { return false; }
    bool RenameMember(const std::string&, const std::string&) override { return false; }
    bool ChangeMemberType(const std::string&, const EDataTyps&) override { return false; }
    void SetIdent(const std::string&) override {}

private:
    using Row = std::pair<std::string, CVariantValue>;
    std::vector<Row>::iterator Find(const std::string& name);

    const std::string m_ident;
    const std::function<void()> m_endThread;
    std::mutex m_mutex; // of the rows
    std::vector<Row> m_rows;
};

} // namespace korvel::inspector
