#pragma once

#include "korvel/editors/combo_list_codes.h"
#include "korvel/layout/subclass_wnd.h"

namespace korvel {

/// Whether a message to the window around `owner` means that the user acts elsewhere: the window moves, a
/// mouse button is pressed in it, or a command arrives that is not the owner's. In a Wayland session nobody
/// is told that a window moves: the list stays open.
KORVEL_API bool EndsComboList(HWND owner, UINT message, WPARAM wParam, LPARAM lParam);

/// Watches the window around a field while its list is dropped, and closes the list when the user acts
/// elsewhere. The message itself is always passed on first.
///
///     CComboListHook<CEditableGrid> m_ComboHook{this, &CEditableGrid::CtrlEnd};
///     m_ComboHook.HookWindow(korvel::GetParent(m_hWnd));   // the list has dropped
///     m_ComboHook.HookWindow(nullptr);                     // the list is closed
///
/// The owner gets 4, then 9, through its SendParentComboMessage, then `end` is called; unless the message
/// has closed the list itself. An owner whose window is destroyed meanwhile gets no more. T is a CWnd with a
/// SendParentComboMessage(UINT).
template <typename T>
class CComboListHook : public CSubclassWnd {
public:
    using EndRoutine = void (T::*)();

    CComboListHook(T* owner, EndRoutine end) : m_pOwner(owner), m_end(end) {}

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        const HWND window = GetHookedWindow();
        T* owner = m_pOwner;
        const HWND ownerWindow = owner ? owner->m_hWnd : nullptr;
        const EndRoutine end = m_end;
        const bool ends = owner && EndsComboList(ownerWindow, message, wParam, lParam);
        const LRESULT result = CSubclassWnd::WindowProc(message, wParam, lParam);
        if (!ends || !IsHooking(this, window))
            return result;
        // Whatever it notifies may destroy the owner, and this hook with it.
        owner->SendParentComboMessage(ComboListKillFocus);
        if (IsWindow(ownerWindow))
            owner->SendParentComboMessage(ComboListChanged);
        if (IsWindow(ownerWindow))
            (owner->*end)();
        return result;
    }

private:
    T* m_pOwner;
    EndRoutine m_end;
};

} // namespace korvel
