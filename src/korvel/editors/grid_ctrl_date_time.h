#pragma once

#include "korvel/editors/grid_option.h"
#include "korvel/values/observer_grid.h"
#include "korvel/window/controls/date_time_ctrl.h"

#include <string>

namespace korvel {

/// What a CGridCtrlDateTime sends its parent (the high word of WM_COMMAND) when the user has opened the
/// calendar or changed the date.
inline constexpr UINT GridDateChanged = 0xFD09;

/// The date picker in a cell: shows a date member of an object and writes it back.
///
///     CGridCtrlDateTime date(&observer);
///     date.Create(0x40000002, cell, &grid, 109);
///     date.Start(&axis, "built");   // 4 March 2026; the user chooses the 5th
///     date.End();                   // SetMember and OnChange with the 5th
///
/// When it loses the focus it sends its parent EN_KILLFOCUS, once; the calendar that it drops down takes
/// none. Return and Escape close the calendar, and give the focus to the parent where it is not open. Under
/// EscapeCancels, Escape gives the edit up before it moves the focus; the parent puts back what it has let
/// the picker write meanwhile.
///
/// A picker that the user leaves as it was writes back what the object holds, bit for bit: also a date with
/// fractions of a second, in years before 1601, and a state that is neither "GDT_VALID" nor "GDT_NONE". A
/// member without a date, or without any value yet, shows none, and begins with today when the user asks for
/// one; without a value, nothing is written until then. The object and the observer may do anything meanwhile
/// but delete the picker.
class KORVEL_API CGridCtrlDateTime : public CDateTimeCtrl {
public:
    /// `observer` may be null, and must outlive the picker.
    explicit CGridCtrlDateTime(IObserverGrid* observer = nullptr) : m_pObserver(observer) {}

    void SetOptions(GridOptions options) { m_options = options; }

    /// Shows the member. The object must live until another Start or Drop. A member of another type, or
    /// that the object does not know, leaves the picker as it is. What the object throws passes through.
    void Start(IMemberDispatch* disp, const std::string& name);
    /// Writes the date back: SetMember, then OnChange of the observer. False, and nothing told, when the
    /// object refuses it; the picker then keeps it, as it does after an exception, which passes through. True
    /// also where there is nothing to write: no object, no longer a date, nothing chosen for a member without
    /// a value, from within End. An edit that the object ends is told to nobody.
    bool End();
    /// Forgets the member; nothing is written.
    void Drop();

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    IMemberDispatch* m_pDisp = nullptr; ///< null: nothing is shown
    std::string m_strName;              ///< of the member; follows when it is renamed
    bool m_bFocused = false;            ///< until the parent is told that the focus has gone

protected:
    bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    struct Choice {
        UINT flag = 0; // GDT_*
        SYSTEMTIME time;
        bool operator==(const Choice&) const = default;
    };

    Choice ReadChoice() const;
    void Show(const CVariantValue& value);
    void OnKillFocus(HWND taker);

    IObserverGrid* const m_pObserver;
    GridOptions m_options;
    Choice m_unchanged;      // what the picker shows while the user has changed nothing
    unsigned m_bindings = 0; // counts Start and Drop
    bool m_isInEnd = false;
};

} // namespace korvel
