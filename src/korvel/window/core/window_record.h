#pragma once

#include "korvel/window/base/aspects.h"
#include "korvel/window/base/messages.h"
#include "korvel/window/base/types.h"
#include "korvel/window/core/control_state.h"
#include "korvel/window/core/scroll_bar_state.h"
#include "korvel/window/core/window_table.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <boost/smart_ptr/intrusive_ref_counter.hpp>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace korvel {
class CWnd;
}

/// What a handle names: the record of its window.
namespace korvel::internal {

class ThreadQueue;

/// One window. Read, written, counted and freed on its own thread only.
struct WindowRecord : boost::intrusive_ref_counter<WindowRecord, boost::thread_unsafe_counter> {
    WindowRecord(HWND windowHandle, std::shared_ptr<ThreadQueue> ownQueue, std::uint64_t number)
        : handle(windowHandle), queue(std::move(ownQueue)), creationNumber(number) {}

    const HWND handle;
    const std::shared_ptr<ThreadQueue> queue; // of the thread that made the window
    const std::uint64_t creationNumber;       // grows from window to window of the thread
    HWND parent = nullptr;                    // null for a top-level window
    HWND owner = nullptr;                     // of a top-level window
    std::vector<HWND> children;               // in order of creation
    std::vector<HWND> owned;
    int id = 0;
    std::string className;
    UINT style = 0; // WS_VISIBLE and WS_DISABLED say whether it is shown and enabled
    UINT exStyle = 0;
    CRect rect; // relative to the parent's client area, or to the screen
    CString text;
    WPARAM font = 0;
    LPARAM userData = 0;
    WNDPROC procedure = nullptr;
    WNDPROC superProcedure = nullptr; // what the window had before an object was attached
    CWnd* object = nullptr;
    HWND* handleInObject = nullptr;          // CWnd::m_hWnd of the object
    CWnd* temporary = nullptr;               // what CWnd::FromHandle gives of a window without object
    std::shared_ptr<HWND> handleInTemporary; // CWnd::m_hWnd of that, which it keeps alive
    bool redraw = true;                      // WM_SETREDRAW
    Aspects untold;                          // what changed while redraw was off
    bool destroying = false;                 // its end has begun, though it still counts as visible at first
    bool announced = false;                  // WM_DESTROY was sent
    std::unique_ptr<ControlState> control;
    std::unique_ptr<ScrollBarStates> scrollBars; // null until the program sets one

    HWND ParentOrOwner() const { return parent ? parent : owner; }
    bool IsShown() const { return (style & WS_VISIBLE) != 0; }
    bool IsSwitchedOn() const { return (style & WS_DISABLED) == 0; }
    /// The object's procedure stays where it is; without object it passes on to the former one.
    void DetachObject() {
        if (std::exchange(object, nullptr))
            *handleInObject = nullptr;
    }
};

/// Keeps record and control state alive, also after the window has ended: message dispatch holds one, so
/// that a control may be destroyed inside its own handlers.
using RecordRef = boost::intrusive_ptr<WindowRecord>;

/// The records of the calling thread's windows by slot; null before the first and after the end of the
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

/// Runs `call` on the thread of another thread's window at its next message retrieval and waits. The call is
/// dropped when the window is gone, or it or its thread ends before.
void CallOnOwner(HWND window, const std::function<void(WindowRecord&)>& call);

/// Runs `function(WindowRecord&)` on the window's thread and returns its result; a value-initialised one
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

} // namespace korvel::internal
