#pragma once

#include "korvel/values/member_dispatch.h"

#include <list>
#include <new>
#include <string>

/// Reads of a host's object while its rows are filled: an object that throws reads as one that has no such
/// member, and the rest of it is shown all the same. Only running out of memory passes through.
namespace korvel::internal {

template <typename Result, typename Read>
Result ReadOr(Result otherwise, Read read) {
    try {
        return read();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (...) {
        return otherwise;
    }
}

inline bool ReadMember(IMemberDispatch& disp, const std::string& name, CVariantValue& value) {
    const bool isRead = ReadOr(false, [&] { return disp.GetMember(name, value); });
    if (!isRead)
        value = CVariantValue();
    return isRead;
}

/// DT_Void when there is no such member.
inline EDataTyps ReadMemberType(IMemberDispatch& disp, const std::string& name) {
    EDataTyps type = DT_Void;
    return ReadOr(false, [&] { return disp.GetMemberType(name, type); }) ? type : DT_Void;
}

inline bool ReadMemberEditable(IMemberDispatch& disp, const std::string& name) {
    return ReadOr(
        false, [&] { return disp.IsMemberEditable(name); });
}

inline std::list<std::string> ReadMemberNames(IMemberDispatch& disp) {
    std::list<std::string> names;
    if (!ReadOr(false, [&] { return disp.GetMemberNames(names), true; }))
        names.clear();
    return names;
}

/// Whether the members are to be shown in the object's own order.
inline bool ReadKeepsOrder(IMemberDispatch& disp) {
    return ReadOr(
               0u, [&] { return disp.GetOptions(); }) &
           DO_KeepOrder;
}

} // namespace korvel::internal
