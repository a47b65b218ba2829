#pragma once

#include "korvel/platform/export.h"

namespace korvel {

class CDlgProgress;

/// Hears of a progress dialog, once it is in its `m_Observers`.
///
/// It may do anything there but delete the dialog: take itself or others out of the set, close the dialog,
/// throw. What it throws comes out when all observers have heard.
class KORVEL_API IObserver_DlgProgress {
public:
    /// The window shows its values. On its thread.
    virtual void OnDlgInit(CDlgProgress* dialog) = 0;
    /// The window is about to go, in whatever way; heard once, on its thread.
    virtual void OnDlgDestroy(CDlgProgress* dialog) = 0;
    /// IsCancelled has changed, in either direction. On the thread that called SetCancelled, which holds the
    /// dialog's lock: other threads wait when they ask the dialog, so it must not wait for one.
    virtual void OnDlgCancelled(CDlgProgress* dialog) = 0;
    virtual ~IObserver_DlgProgress() = default;
};

} // namespace korvel
