#pragma once

#include "korvel/editors/grid_option.h"
#include "korvel/output/numberfmt.h"
#include "korvel/values/observer_grid.h"
#include "korvel/window/controls/edit.h"

#include <functional>
#include <set>
#include <string>

namespace korvel {

/// Commands, with a null lParam, of a host's Edit menu to the text field of a cell with the focus; the keys
/// for copy, cut and paste send them too.
inline constexpr UINT ID_EDIT_COPY = 57634;
inline constexpr UINT ID_EDIT_CUT = 57635;
inline constexpr UINT ID_EDIT_PASTE = 57637;

/// The text field over a cell, in which a number, an angle, a text or a file's path is typed. It takes every
/// character, and reads the text as a value when the edit ends.
///
///     CGridCtrlEdit edit(&observer);
///     edit.Create(0x40030080, cell, &grid, 105);
///     edit.Start(&axis, "length");     // shows "12.500000"
///     edit.SetWindowTextA("2*(3+4)");
///     edit.End(true);                  // observer.OnChange, then axis.SetMember: 14 m
///
/// Return and Escape give the focus to the parent, which is told of the loss by EN_KILLFOCUS and ends the
/// edit. ID_EDIT_COPY, ID_EDIT_CUT and ID_EDIT_PASTE concern the whole text.
///
/// Objects, observer and hooks may end the edit, begin another or destroy the window while they are called;
/// nothing is written then. They must not delete the field.
class KORVEL_API CGridCtrlEdit : public CEdit {
public:
    /// May be null; must outlive the field.
    explicit CGridCtrlEdit(IObserverGrid* observer) : m_pObserver(observer) {}

    /// In force from the next text that is shown or read.
    void SetOptions(GridOptions options) { m_options = options; }

    /// Begins an edit of a member and shows its value with all text selected, and without a limit to what is
    /// typed; an empty text when the object knows no such member. Nothing is written at the end of an edit in
    /// which the text was not changed. When the object throws, no edit has begun; when it ends the edit
    /// meanwhile, `m_pDisp` is null.
    void Start(IMemberDispatch* disp, const std::string& name);
    /// Shows a value: numbers with a point, without groups and unit; what is no number as its Text.
    void SetValue(const CVariantValue& value);
    /// Reads the text as a value of `type`. False, and nothing to be written: the host's entity function has
    /// taken the text, or the text is a formula and the object does not know the member.
    /// \throws Error "invalid input: abc" for a text that is no such value, "150: Value is outside ..."
    /// beyond a range, an empty text for what is no arithmetic
    bool GetValue(EDataTyps type, CVariantValue& value);
    /// Writes the text, if it was changed: OnChange of the observer, then SetMember. `release` ends the edit;
    /// else it goes on. Without effect while it runs already. Passes on what GetValue and the host throw; the
    /// edit then goes on with its text. \throws Error with an empty text where the object gives no type or
    /// SetMember returns false. When it fails after the observer was told of the value, the held value hook
    /// and then the observer are told what the object holds.
    void End(bool release);
    /// Ends the edit without writing.
    void Drop();

    /// The value of `type` that a text means. False, and `value` as before, for a type that is not edited as
    /// a text, and for a whole number that its 32 bits do not hold. \throws Error "150: Value is outside ..."
    /// beyond a range, an empty text for what is no arithmetic; and what the object throws that is asked for
    /// a file
    bool Convert(EDataTyps type, const std::string& text, CVariantValue& value);
    /// \throws Error with an empty text for what is no arithmetic (parser/evaluate_expression.h)
    double ParseNumber(const _numberfmtA& format, const std::string& text) const;
    /// Adds to the number that the text means and shows the sum, in ranges from 0 to 100. Without effect for
    /// a formula, for a text that the entity function takes, and while nothing is edited.
    /// \throws Error with an empty text for what is no number
    void StepValue(double delta);

    /// Called when a value was refused that the observer had heard of: the grid shows in its row what the
    /// object holds. What it throws is dropped.
    using HeldValueHook =
        std::function<void(IMemberDispatch* disp, const std::string& name, const CVariantValue& held)>;
    void SetHeldValueHook(HeldValueHook hook) { m_heldValueHook = std::move(hook); }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    IMemberDispatch* m_pDisp = nullptr; ///< null: nothing is edited
    std::string m_strName;              ///< of the member; follows when it is renamed
    IObserverGrid* m_pObserver;
    bool m_bInEnd = false;
    bool m_bChanged = false; ///< the text, since the edit began or was written
    /// Windows that may take the focus without ending the edit: the spin button.
    std::set<HWND> m_CompanionWindows;

protected:
    bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    bool OnCommand(WPARAM wParam, LPARAM lParam) override;

private:
    class Session;

    void Commit();
    void TellHeldValue(const Session& session);
    bool IsTakenByEntityFunction(const std::string& text) const;
    void Leave(WPARAM character);
    bool Copy() const;
    void Cut();
    void Paste();

    GridOptions m_options;
    HeldValueHook m_heldValueHook;
    unsigned m_session = 0; // counts the edits
    bool m_isCancelling = false;
};

} // namespace korvel
