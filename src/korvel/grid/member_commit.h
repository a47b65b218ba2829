#pragma once

#include "korvel/grid/edited_members.h"
#include "korvel/grid/write_frame.h"
#include "korvel/values/observer_grid.h"

#include <string>

namespace korvel::internal {

/// How the cells of a grid read members and write them. Each call to the host may end what is shown: the grid
/// is asked again after it, and what is not shown any more is left alone.
class MemberCommit {
public:
    MemberCommit(const EditedMembers& members, WriteFrame& frame, IObserverGrid* observer)
        : m_members(members), m_frame(frame), m_observer(observer) {}

    bool IsShown(IMemberDispatch* disp, const std::string& name) const;
    /// Whether the member is shown and its object lets it be written. An object that throws does not.
    bool CanWrite(IMemberDispatch* disp, const std::string& name) const;
    /// False, and the user told of what it throws, when the object gives no value, or the member is gone
    /// then.
    bool Read(IMemberDispatch* disp, const std::string& name, CVariantValue& value) const;
    /// An undoable step: SetMember, and OnChange unless the object refuses. False when nothing was written.
    bool Write(IMemberDispatch* disp, const std::string& name, const CVariantValue& value) const;

    /// The step of everything that writes a value.
    bool RunStep(const WriteFrame::Write& write, const WriteFrame::Explain& explain = {}) const;
    /// Calls the host for what is no step; false when it threw, which the user is told.
    bool RunOutside(const std::function<void()>& action) const { return m_frame.RunOutside(action); }
    /// Tells the user of a failure outside of a step.
    void Tell(const std::exception_ptr& failure, const WriteFrame::Explain& explain) const {
        m_frame.Tell(failure, explain);
    }
    IObserverGrid* Observer() const { return m_observer; }

private:
    const EditedMembers& m_members;
    WriteFrame& m_frame;
    IObserverGrid* const m_observer;
};

} // namespace korvel::internal
