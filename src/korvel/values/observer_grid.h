#pragma once

#include "korvel/platform/export.h"
#include "korvel/values/member_dispatch.h"

#include <string>

namespace korvel {

/// How a host says to a grid what was changed elsewhere: the library implements it, one sink for each
/// object that is shown, and lends it to IObserverGrid::AddSink.
///
///     axis.SetMember("length", longer);     // the host changes its object first,
///     sink->OnChange("length", longer);     // then it says so: the cell shows the new length
///
/// Any thread may call it. The thread of the grid's window runs the operation: at once when it is the caller,
/// else when it next retrieves messages, and each call returns after the grid has followed. So the calls of
/// one thread keep their order, and another thread must not hold a lock that the windows' thread may wait for
/// (docs/threads.md). The operation may call objects and observer.
///
/// A sink is valid from its AddSink until RemoveSink for it returns, also within RemoveSink; that of the root
/// lives as long as the grid. What it says of members and objects that are not shown, and to a grid without a
/// window, is ignored. Exceptions of SetMember and of the observer, and std::bad_alloc, leave the operations
/// to a caller on the windows' thread; those for another thread go to the exception handler, and the caller
/// goes on. What else throws shows as an empty value.
class KORVEL_API IObserverGridSink {
public:
    virtual void Reserved0() {}

    /// The object's own name was changed. Nothing shows it: the grid does nothing.
    virtual void OnChangeIdent(const std::string& name, const std::string& newName) = 0;

    /// The member has a new value: its cell shows `value`. A flag that differs from the object's is written
    /// to the object. A group, and a member that the object does not know, show what they showed.
    virtual void OnChange(const std::string& name, const CVariantValue& value) = 0;

    /// The member was made editable or write protected: its cell is drawn so.
    virtual void OnChangeEditFlag(const std::string& name, const bool& editable) = 0;

    /// A member was added: a row comes after the last member of the object (in the multi-column layout, for
    /// all but groups, a cell). For a group the observer hears AddSink twice, and with a null sink when
    /// no nested object is shown at all.
    virtual void OnOperationAdd(const std::string& name, const CVariantValue& value) = 0;

    /// A member was inserted before the one at `position`, counted from 0; beyond the last it is appended.
    virtual void OnOperationInsert(const unsigned long& position, const std::string& name,
                                   const CVariantValue& value) = 0;

    /// A member was removed: its row goes with all below, and the observer hears RemoveSink for every object
    /// among them, the innermost first. A selected row hands the selection to the next one. `value` is kept
    /// for callers.
    virtual void OnOperationRemove(const std::string& name, const CVariantValue& value) = 0;

    /// A member was renamed: its row shows the new name in the same place; in the multi-column layout its
    /// cell moves to the column of the new name. The object is asked for the value under `newName`.
    virtual void OnOperationRename(const std::string& name, const std::string& newName) = 0;

    /// A member's type was changed: its cell gets the editor of the new type, then `value` as in OnChange.
    /// `type` is the former one, kept for callers.
    virtual void OnOperationChangeType(const std::string& name, EDataTyps type,
                                       const CVariantValue& value) = 0;

    /// The presentation of this nested object has a new text, which `name` carries: its row shows it.
    virtual void OnOperationChangeTupelPresentation(const std::string& name) = 0;

    virtual ~IObserverGridSink() = default;
};

/// Implemented by the host and given to a grid, which it must outlive: hears of what is shown, and of every
/// change that the user made, after the object was changed. A text field alone calls OnChange before it
/// changes the object, and again, with the value that the object holds, when that refuses. A drop-down list
/// tells of its choice also when the object refuses it, and then of what the object holds. Called on the
/// thread of the grid's window; `reserved` is always null. Each operation may call the grid back, and may
/// throw; it must not delete the grid.
class KORVEL_API IObserverGrid {
public:
    /// The grid begins to show `disp` (null: Initialize was given null). May be called again for one object,
    /// with the same sink; `sink` (null in one case of OnOperationAdd) stays the grid's. An exception undoes
    /// what was about to be shown, and RemoveSink follows all the same; that of the second AddSink for a
    /// member that was added leaves it shown.
    virtual void AddSink(IMemberDispatch* disp, IObserverGridSink* sink) = 0;

    /// The grid stops showing `disp`: once, however often AddSink came. The object must live and the sink
    /// does live until this returns. An exception goes on after all others have been called.
    virtual void RemoveSink(IMemberDispatch* disp, IObserverGridSink* sink) = 0;

    virtual void Reserved2() {}
    /// The user wrote a value.
    virtual void OnChange(IMemberDispatch* disp, void* reserved, const std::string& name,
                          const CVariantValue& value) = 0;
    /// The user removed a member.
    virtual void OnRemove(IMemberDispatch* disp, void* reserved, const std::string& name) = 0;
    /// The user renamed a member.
    virtual void OnRename(IMemberDispatch* disp, void* reserved, const std::string& name,
                          const std::string& newName) = 0;
    /// The user added a member.
    virtual void OnAdd(IMemberDispatch* disp, void* reserved, const std::string& name,
                       const CVariantValue& value) = 0;
    virtual void Reserved7() {}
    /// The user switched the write protection of a member.
    virtual void OnChangeEditFlag(IMemberDispatch* disp, void* reserved, const std::string& name,
                                  const bool& editable) = 0;
    /// The user changed the type of a member to `type`; `value` is what the object made of its value.
    virtual void OnChangeType(IMemberDispatch* disp, void* reserved, const std::string& name, EDataTyps type,
                              const CVariantValue& value) = 0;

protected:
    // Not virtual: the first operation in the order that hosts know is AddSink.
    ~IObserverGrid() = default;
};

} // namespace korvel
