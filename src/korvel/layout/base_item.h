#pragma once

#include "korvel/layout/item.h"

namespace korvel {

class CWnd;

/// A leaf of a layout: one control of the host window.
///
///     CBaseItem* list = new CBaseItem(m_hWnd, IDC_LIST, ItemGrowX | ItemGrowY);
///     pane->Add(list);   // reads where the control is now
///
/// A control that does not exist, or no longer, is moved without effect.
class KORVEL_API CBaseItem : public IItem {
public:
    /// The control is looked up here, once.
    CBaseItem(HWND parent, int controlId, UINT layoutFlags);

    void MoveTo(const RECT& target) override;
    void CaptureRect() override;
    const RECT* GetRect() override { return &rect; }
    void SetRect(const RECT& design) override { rect = design; }
    IItem* FindItem(int wanted) override { return wanted == id ? this : nullptr; }
    /// From where the window is at present.
    void Shift(int dx, int dy) override;
    /// Only left and top of the stored rectangle move. Kept: the stored size shrinks or grows by the shift,
    /// and a host that shifts an item sees its right and lower edge stay at the next placement.
    void ShiftKeep(int dx, int dy) override;

    HWND hParent;
    HWND hWnd;
    int id;
    CWnd* pOwner = nullptr; // when set, MoveTo asks this window for its control with the id; not owned
    RECT rect;              // zero until CaptureRect
};

} // namespace korvel
