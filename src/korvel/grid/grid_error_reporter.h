#pragma once

#include "korvel/platform/export.h"

#include <string>

namespace korvel {

/// Hears of the failures of a grid before the error box shows them, and under EGridOption::InlineErrors in
/// its place; implemented by the host. A derived grid sets it as `m_pErrorReporter`.
class KORVEL_API IGridErrorReporter {
public:
    virtual ~IGridErrorReporter() = default;

    /// What the user did has failed, and its undoable step has been rolled back; what makes no step may have
    /// been done in part. `message` says why, in the language of the process. May do what a host may do while
    /// it is called, see CEditableGrid; also throw, which keeps a refused text in its field.
    virtual void Report(const std::string& caption, const std::string& message) = 0;
};

} // namespace korvel
