#pragma once

#include "korvel/layout/dlg_state_base.h"
#include "korvel/window/core/cwnd.h"

namespace korvel {

/// A base of a window class `T`, next to its CWnd, that remembers the window's rectangle from run to run, in
/// the user's settings:
///
///     class CPlanPage : public CDialog, public TDlgState<CPlanPage> {
///     public:
///         UINT GetTemplateID() const { return 4711; }
///         BOOL OnInitDialog() override {
///             CDialog::OnInitDialog();
///             Load(true);   // HKEY_CURRENT_USER\SOFTWARE\Halmond\Korvel\DlgStates\Line Planner\4711
///             return 1;
///         }
///         ... Save() at WM_DESTROY, while the children still live
///     };
///
/// The key is the root, the name of the application in force (CWinApp::m_pszAppName) where there is one, and
/// the template id. Both operations create it first where it is missing. The value `State` holds left, top,
/// right and bottom, 16 bytes; of a longer one the rest is ignored, and one that is missing, too short or of
/// another type leaves the window as it is. Without the application's name, or without a window, nothing is
/// saved.
///
/// A top-level window is remembered in screen coordinates. Kept: a child is remembered in its own client
/// coordinates, and is given that rectangle in its parent's. A rectangle outside of every screen is moved to
/// the screen of the owner; the record stays.
///
/// WM_DLG_STATE_REGISTRY carries the key in lParam (const char*, with a separator at its end); children may
/// keep states of their own there. It is sent after a failed read as well, but not where the key cannot be
/// used: for want of rights, or as the store fails. No exception leaves: neither of the store, nor of the
/// host's GetTemplateID, nor of a window that is moved or told.
template <class T>
class TDlgState : public DlgStateBase {
public:
    void Load(const bool& applyRect) override { LoadState(StateWindow(), applyRect); }
    void Save() override { SaveState(StateWindow()); }

private:
    CWnd* StateWindow() { return dynamic_cast<CWnd*>(this); }
    UINT StateTemplateId() const override {
        const T* owner = dynamic_cast<const T*>(this);
        return owner ? owner->GetTemplateID() : 0;
    }
};

} // namespace korvel
