#pragma once

#include "korvel/window/base/types.h"

#include <string>

namespace korvel {

class CWnd;

/// What TDlgState does for a window that it is handed.
class KORVEL_API DlgStateBase {
public:
    virtual ~DlgStateBase() = default;
    /// Reads the record; with `applyRect` the window gets the rectangle in it. Then each direct child hears
    /// WM_DLG_STATE_REGISTRY with wParam 0.
    virtual void Load(const bool& applyRect) = 0;
    /// Writes the record. Then each direct child hears WM_DLG_STATE_REGISTRY with wParam 1.
    virtual void Save() = 0;
    /// The key below which states are kept, with a separator at its end: `base`, or the library's own for an
    /// empty one. Called with the library's own; override it to keep states elsewhere.
    virtual std::string GetRootKey(const std::string& base);

protected:
    DlgStateBase() = default;
    DlgStateBase(const DlgStateBase&) = default;
    DlgStateBase& operator=(const DlgStateBase&) = default;

    void LoadState(CWnd* window, bool applyRect);
    void SaveState(CWnd* window);

private:
    virtual UINT StateTemplateId() const = 0; // may throw

    std::string EnsureKey();
};

} // namespace korvel
