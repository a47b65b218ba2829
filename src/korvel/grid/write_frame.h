#pragma once

#include "korvel/editors/grid_option.h"
#include "korvel/grid/grid_error_reporter.h"
#include "korvel/grid/history_step.h"

#include <exception>
#include <functional>
#include <string>

namespace korvel {
class CWnd;
}

namespace korvel::internal {

/// The frame in which a grid writes to objects: an undoable step round the write, and the user is told what
/// failed.
///
///     frame.Run(30, [&](HistoryStep&) {     // Text 30: "Member edited"
///         if (!disp->SetMember(name, value))
///             return false;                 // rolls back, and nothing is said
///         observer->OnChange(disp, nullptr, name, value);
///         return true;
///     });
///
/// Steps never nest: a write from within another one belongs to that step, which hears what it throws.
///
/// What is called in a frame, the parent, the reporter and whatever runs while a box is shown may end the
/// binding, destroy the window and move the focus: look after Run and Tell.
class WriteFrame {
public:
    /// All must outlive it; the parent, the reporter (null: none) and the options are those of the time of a
    /// run.
    WriteFrame(const CWnd& grid, IGridErrorReporter* const& reporter, const GridOptions& options)
        : m_grid(grid), m_reporter(reporter), m_options(options) {}
    WriteFrame(const WriteFrame&) = delete;
    WriteFrame& operator=(const WriteFrame&) = delete;

    /// Does the writing and says whether anything was written. May close the step early, to go on outside.
    using Write = std::function<bool(HistoryStep& step)>;
    /// Makes the message for the user out of the text of an exception, which may be empty.
    using Explain = std::function<std::string(const std::string& text)>;

    /// Opens a step with Text(`title`), writes, and closes the step. False when the step was rolled back: the
    /// write threw, which the user was told, or it said that nothing was written. Throws only what telling
    /// the user throws, and from within another frame what `write` throws.
    bool Run(int title, const Write& write, const Explain& explain = {});
    /// The same without a step, for what makes none. False: it threw.
    bool RunOutside(const std::function<void()>& action);
    /// Tells the user of a failure: by the reporter, and in a box over the grid, unless its window is gone.
    /// Under InlineErrors a reporter stands for the box.
    void Tell(const std::string& message) const;
    /// The same with the text of an exception; where that is empty, and nothing explains it, Text(46).
    void Tell(const std::exception_ptr& failure, const Explain& explain) const;

private:
    const CWnd& m_grid;
    IGridErrorReporter* const& m_reporter;
    const GridOptions& m_options;
    bool m_isRunning = false;
};

} // namespace korvel::internal
