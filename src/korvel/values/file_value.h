#pragma once

#include "korvel/platform/export.h"
#include "korvel/values/member_dispatch.h"

#include <cstdint>

namespace korvel {

class CWnd;

/// Lets the user choose the file of a file-valued member; travels in `CVariantValue::EnumContext`. A host
/// implements it, or takes `CFileValueImp`. All operations are called on the thread of the windows.
class KORVEL_API IFileValue : public IDestroyValue {
public:
    /// Lets the user choose a file, beginning at `path`, in a dialog owned by `parent` (may be null). Returns
    /// the chosen path, or `path` or null when the user cancelled; the characters are valid until the next
    /// call.
    virtual const char* Choose(const char* path, CWnd* parent) = 0;

    /// A number of the host's own; the library keeps it and reads no meaning into it.
    virtual const std::uint32_t& GetFileType() const = 0;
    virtual void SetFileType(std::uint32_t type) = 0;
};

} // namespace korvel
