#pragma once

#include "korvel/grid/grid_error_reporter.h"
#include "korvel/grid/history_step.h"

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
    /// Both must outlive it; the parent and the reporter (null: none) are those of the time of a run.
    WriteFrame(const CWnd& grid, IGridErrorReporter* const& reporter) : m_grid(grid), m_reporter(reporter) {}
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
    /// Tells the user of a failure: by the reporter, else in a box over the grid, unless its window is gone.
    void Tell(const std::string& message) const;
    bool IsRunning() const { return m_isRunning; }

private:
    const CWnd& m_grid;
    IGridErrorReporter* const& m_reporter;
    bool m_isRunning = false;
};

} // namespace korvel::internal
