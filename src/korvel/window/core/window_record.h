#pragma once

#include "korvel/window/core/window.h"
#include "korvel/window/core/window_table.h"
#include "korvel/window/display/display.h"
#include "korvel/window/display/window_view.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

/// The records behind the handles: for the sources of window/, not for hosts.
namespace korvel {
class CWnd;
}

namespace korvel::internal {

class ThreadQueue;
struct WindowRecord;

/// The state of a control beyond its window: rows and columns, selection, check. Made by the class at
/// creation, freed with the record. What a display reads and reports about it passes here, so that a new
/// kind of control is one class and one line of registration.
class ControlState {
public:
    virtual ~ControlState() = default;

    virtual view::Kind Kind() const { return view::Kind::Painted; }
    virtual view::EditView Edit() const { return {}; }
    virtual view::ScrollView Scroll() const { return {}; }
    virtual int Check() const { return 0; }
    /// What scroll bars take from the client area on each side, of a window that has that size inside its
    /// border.
    virtual CRect ClientInsets(CSize /*insideBorder*/) const { return {}; }

    /// What the user did in a native widget (see window/display/input.h). Called for enabled windows only.
    virtual void Edited(const CString&, int /*selectionStart*/, int /*selectionEnd*/) {}
    virtual void Value(double) {}
    virtual void Scrolled(int /*x*/, int /*row*/) {}
};

/// One window. Read, written, counted and freed on its own thread only.
struct WindowRecord : boost::intrusive_ref_counter<WindowRecord, boost::thread_unsafe_counter> {
    WindowRecord(HWND windowHandle, std::shared_ptr<ThreadQueue> ownQueue, std::uint64_t number)
        : handle(windowHandle), queue(std::move(ownQueue)), creationNumber(number) {}
    ~WindowRecord();

    const HWND handle;
    const std::shared_ptr<ThreadQueue> queue; // of the thread that made the window
    const std::uint64_t creationNumber;       // grows from window to window of the thread
    HWND parent = nullptr;                    // null for a top-level window
    HWND owner = nullptr;                     // of a top-level window
    std::vector<HWND> children;               // in order of creation
    std::vector<HWND> owned;
    int id = 0;
    std::string className;
    UINT style = 0; // WS_VISIBLE and WS_DISABLED tell whether it is shown and enabled
    UINT exStyle = 0;
    CRect rect; // relative to the parent's client area, or to the screen
    CString text;
    WPARAM font = 0;
    LPARAM userData = 0;
    WNDPROC procedure = nullptr;
    WNDPROC superProcedure = nullptr; // what the window had before an object was attached
    CWnd* object = nullptr;
    bool redraw = true;      // WM_SETREDRAW
    Aspects untold = 0;      // what changed while redraw was off
    bool destroying = false; // its end has begun, though it still counts as visible at first
    bool announced = false;  // it has heard WM_DESTROY
    std::unique_ptr<ControlState> control;

    HWND ParentOrOwner() const { return parent ? parent : owner; }
    bool IsShown() const { return (style & WS_VISIBLE) != 0; }
    bool IsSwitchedOn() const { return (style & WS_DISABLED) == 0; }
};

/// Keeps record and control state alive, also after the window has ended: message dispatch holds one, so
/// that a control may be destroyed inside its own handlers.
using RecordRef = boost::intrusive_ptr<WindowRecord>;

/// The records of the calling thread's windows by slot; null before the first and behind the end of the
/// thread. No other thread touches them, so that they are found without a lock: every message does it often.
/// Trivially destroyed, for objects that die late in a thread.
extern constinit thread_local const std::vector<RecordRef>* t_ownRecords;

/// The record of a living window of the calling thread; null for a null or stale handle and for a window of
/// another thread.
inline RecordRef Find(HWND window) {
    const std::size_t slot = WindowTable::SlotOf(window);
    if (!t_ownRecords || slot >= t_ownRecords->size())
        return nullptr;
    const RecordRef& record = (*t_ownRecords)[slot];
    return record && record->handle == window ? record : nullptr;
}

/// The state of a control, which it keeps alive; null when the window is gone or is no control of that type.
template <class State>
class ControlOf {
public:
    explicit ControlOf(HWND window)
        : m_record(Find(window)),
          m_state(m_record ? dynamic_cast<State*>(m_record->control.get()) : nullptr) {}

    explicit operator bool() const { return m_state != nullptr; }
    State* get() const { return m_state; }
    State& operator*() const { return *m_state; }
    State* operator->() const { return m_state; }

private:
    RecordRef m_record;
    State* m_state;
};

// --- threads ---

/// Runs `call` on the thread of another thread's window at its next message retrieval and waits. The call is
/// dropped when the window is gone, or it or its thread ends before.
void CallOnOwner(HWND window, const std::function<void(WindowRecord&)>& call);

/// Runs `function(WindowRecord&)` on the window's thread and answers its result; a value-initialised one
/// for a window that is gone, or when the function threw on another thread.
template <class Function>
auto OnOwner(HWND window, Function&& function) {
    using Result = decltype(function(std::declval<WindowRecord&>()));
    if (const RecordRef record = Find(window))
        return function(*record);
    if constexpr (std::is_void_v<Result>) {
        CallOnOwner(window, function);
    } else {
        Result result{};
        CallOnOwner(window, [&](WindowRecord& record) { result = function(record); });
        return result;
    }
}

// --- classes ---

struct WindowClass {
    std::string name; // compared without case
    WNDPROC procedure = nullptr;
    /// Makes the state of a control; empty for windows without one. The record is complete but for it.
    std::function<std::unique_ptr<ControlState>(WindowRecord&)> makeControl = {};
};

/// A second registration of a name replaces the first for new windows.
void RegisterWindowClass(WindowClass windowClass);
/// Registers the classes of the controls; called once, at the first look for a class.
void RegisterControlClasses();

// --- display ---

/// Tells the display, if it shows this window; while redraw is off it is kept until it is on again.
void TellDisplay(WindowRecord& record, Aspects aspects);
inline void TellDisplay(WindowRecord& record, Aspect aspect) {
    TellDisplay(record, static_cast<Aspects>(aspect));
}
/// Has a part of the client area (null: all of it) painted again; nothing while redraw is off.
void Repaint(WindowRecord& record, const CRect* area = nullptr);

/// For the default handling of a key or mouse message by a control that has a native widget. True: a
/// display with native widgets delivers just this message; it is now marked as left to the default, and
/// the widget acts after it. False: the control acts itself.
bool LeaveToNativeWidget(HWND window, UINT message);

/// The client area in the window's own coordinates (from its upper left corner): without border and
/// scroll bars.
CRect ClientArea(const WindowRecord& record);

} // namespace korvel::internal
