#pragma once

#include "korvel/platform/export.h"

namespace korvel {

class IFileValue;

/// The kinds of files that the library knows.
class KORVEL_API IFileContainer {
public:
    virtual ~IFileContainer() = default;

    /// The kind under which a chooser is registered, -1 when it is not.
    virtual int GetFileKind(IFileValue* value) = 0;

    /// The chooser of the first kind, whatever is asked for: there is exactly one, and callers rely on
    /// getting it. It belongs to the container.
    virtual IFileValue* GetFileValue(int kind) = 0;
};

/// The one registry, made at first use in the language of the process. To be called on the thread of the
/// windows. \throws Error when the settings name no language; the next call tries again
KORVEL_API IFileContainer& GetFileContainer();

} // namespace korvel
