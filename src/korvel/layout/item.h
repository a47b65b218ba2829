#pragma once

#include "korvel/layout/layout_flags.h"

namespace korvel {

/// A part of a layout: one control (CBaseItem), a row or a column of parts (CPaneManager), or a host's own.
/// It keeps the rectangle that it was designed with, in client coordinates of the host window, and every
/// placement is computed from that one, so that no rounding adds up.
///
/// All of it happens on the host window's thread.
class KORVEL_API IItem {
public:
    IItem() = default;
    IItem(const IItem&) = delete;
    IItem& operator=(const IItem&) = delete;
    virtual ~IItem() = default;

    /// Places what the item stands for in `rect`; the stored rectangle stays. Called by the pane that holds
    /// the item, for each new size of the host window. Must not change the tree that it is in.
    virtual void MoveTo(const RECT& rect) = 0;
    /// Reads the design rectangle from the window. Called when the item is added to a pane.
    virtual void CaptureRect() = 0;
    /// The stored rectangle; it lives as long as the item.
    virtual const RECT* GetRect() = 0;
    virtual void SetRect(const RECT& rect) = 0;
    /// The item with this control id in the tree below and at this one, or null. It stays the tree's.
    virtual IItem* FindItem(int id) = 0;
    /// Moves the windows by a distance; what is stored stays.
    virtual void Shift(int dx, int dy) = 0;
    /// The same, and records the move.
    virtual void ShiftKeep(int dx, int dy) = 0;

    UINT flags = 0; // Item...
};

} // namespace korvel
