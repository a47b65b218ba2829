#include "program/member_path.h"

#include <algorithm>
#include <string>

namespace korvel::inspector {

std::size_t StepAt(std::string_view path, std::string_view name) {
    const bool begins = path.starts_with(name) && (path.size() == name.size() || path[name.size()] == '/');
    return begins ? name.size() : 0;
}

bool HasMember(IMemberDispatch& root, std::string_view path) {
    IMemberDispatch* object = &root;
    while (!path.empty()) {
        if (!object)
            return false;
        std::list<std::string> names;
        object->GetMemberNames(names);
        std::string found;
        for (const std::string& name : names)
            if (StepAt(path, name) > found.size())
                found = name;
        CVariantValue value;
        if (found.empty() || !object->GetMember(found, value))
            return false;
        object = value.Type == DT_Group ? value.Value.Dispatch : nullptr;
        path.remove_prefix(std::min(path.size(), found.size() + 1));
    }
    return true;
}

} // namespace korvel::inspector
