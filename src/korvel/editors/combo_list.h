#pragma once

#include "korvel/editors/combo_list_codes.h"
#include "korvel/editors/combo_list_mode.h"
#include "korvel/editors/combo_tree_item.h"
#include "korvel/output/format_subscription.h"
#include "korvel/values/enum_value.h"
#include "korvel/values/observer_grid.h"
#include "korvel/window/list/list_ctrl.h"

#include <memory>
#include <set>
#include <string>

namespace korvel {

class IGridCtrlComboBoxInputState;

namespace internal {
class ComboModel;
struct ComboListParts;
} // namespace internal

/// The list of the entries of one enumeration: flat, as a tree of path-shaped names, or as a table with a
/// column for each member of a template object. It holds one value, the selection, and writes it back to a
/// member of an object when its owner asks for it.
///
///     CComboList list(eDropDown);
///     list.CreateDropDown(&grid, 106);
///     list.Initialize(&object, "surface");   // rows, selection and input as the enumeration wants them
///     list.DropBelow(field.GetWindowRect());
///     list.ShowWindow(SW_SHOWNA);            // the user chooses; the owner gets 9, then -3
///     list.UpdateDisp(observer);             // SetMember, OnChange, and what the object made of it
///     list.UnIntialize();
///
/// In a dialog, a list of mode eDesignFlat or eDesignTree is created like any CListCtrl, or attached to a
/// control of the template. It then reports to its parent, unless SetOwner names another window.
///
/// Its rows come and go without LVN_INSERTITEM and LVN_DELETEITEM: they follow the enumeration, which the
/// host knows.
///
/// The enumeration and the object belong to the host and must live until UnIntialize. What they throw passes
/// through; a list that was being built is empty then, any other as consistent as before. Null items do
/// nothing. Items are valid until they are removed or the binding ends.
class KORVEL_API CComboList : public CListCtrl {
public:
    using CTreeItem = ComboTreeItem;

    using ECommandList = korvel::ECommandList;
    using enum korvel::ECommandList;

    explicit CComboList(EComboListMode mode);
    /// Holds the value; Initialize() then shows its enumeration.
    CComboList(const CVariantValue& value, EComboListMode mode);
    ~CComboList() override;

    /// Makes the window of a list that drops down: a top-level window of its own, hidden, that never takes
    /// the keyboard. `owner` gets its notifications; the top-level window of `owner` owns it.
    bool CreateDropDown(CWnd* owner, int id);
    /// Places an initialized list below its field (screen coordinates) and as wide, never above: `highest`
    /// pixels high at most, whole rows only, less when there are fewer rows or the screen ends. Three rows
    /// are shown also where the screen ends before them. A fixed height would cut off a row, or leave rows
    /// below the screen that neither keys nor wheel bring up. Until UnIntialize the height follows the rows;
    /// the current row is visible at first. In a Wayland session, where no window knows its place on the
    /// screen, the list opens below also where the screen ends.
    void DropBelow(const CRect& field, int highest = HighestDropDown);
    /// The window that SendParentComboMessage sends to; null: the parent window.
    void SetOwner(CWnd* owner);
    HWND GetOwnerWindow() const;
    /// WM_COMMAND to the owner: `code` in the high word, the control id in the low one, the list in lParam.
    void SendParentComboMessage(UINT code);

    /// Shows the member's enumeration and remembers where to write back to. An object without this member
    /// leaves the list as it is, but for the object and the name. \throws Error for a value without an
    /// enumeration
    void Initialize(IMemberDispatch* disp, const std::string& name);
    /// Shows the value's enumeration; there is no object to write to. \throws Error as above
    void Initialize(const std::string& name, const CVariantValue& value);
    /// Builds the rows for the value at hand; does nothing while there are some. \throws Error as above
    void Initialize();
    /// Empties the list and forgets value name, enumeration and object. The spelling is the contract's.
    void UnIntialize();
    bool IsInitialized() const;

    /// Writes the value to the object, notifies `observer` (may be null), reads it back, and notifies again
    /// when the object has corrected it. Does nothing without an object and while one is running. False when
    /// the object refuses the value; the observer is told all the same.
    bool UpdateDisp(IObserverGrid* observer);
    bool IsRunningUpdateDisp() const;
    /// Reads the member and compares; false while UpdateDisp runs, and for an object without the member.
    const bool& IsDirty();

    /// The object that UpdateDisp writes to; null when there is none.
    IMemberDispatch* GetDisp() const;
    const std::string& GetMemberName() const;
    /// The member is called `name` now; UpdateDisp writes to it under this name.
    void OnRenameMember(const std::string& name);
    /// What is selected now.
    const CVariantValue& GetValue() const;
    EComboListMode GetMode() const;
    /// Null while nothing is shown.
    IEnumValue* GetEnumValue() const;
    /// Null while nothing is shown.
    const IGridCtrlComboBoxInputState* GetInputState() const;

    /// Null for no such row.
    CTreeItem* GetTreeItem(int row) const;
    /// Above all rows; it has none itself.
    const CTreeItem& GetRootItem() const;
    void Expand(CTreeItem* item);
    void Collapse(CTreeItem* item);
    /// The item and everything above it.
    void ExpandParent(CTreeItem* item);
    /// The labels from the root down, joined with the separator of the enumeration.
    std::string GetPath(const CTreeItem& item) const;
    /// `base`, or `base` with the first number with which no child of `parent` is called.
    std::string CreateUniqueName(const std::string& base, const CTreeItem& parent) const;

    /// Sets or clears exactly these bits of ECommandList. They outlive the binding.
    void EnableCommands(std::uint32_t commands, bool enable);
    /// Selects the row and makes it the one that commands and keys are about; for no such row, none is.
    void SetCurrentRow(int row);
    /// -1: none.
    int GetCurrentRow() const;

    // What a host reports about the enumeration; calls for another one than the list shows do nothing.

    /// Shows the entry and makes it the current row.
    void OnAddEnumValue(IEnumValue* enumeration, long id);
    /// Removes the entry's row. The current row is then the one that took its number, or the last one.
    void OnDestroyEnumValue(IEnumValue* enumeration, long id);
    /// Asks for the new name and shows it.
    void OnRenameEnumValue(IEnumValue* enumeration, long id, const CVariantValue& oldName);
    /// Nothing to do: a list shows names only.
    void OnEditEnumValue(IEnumValue*, long, const CVariantValue&) {}
    /// Passes on to the four operations above.
    IEnumSink& GetEnumSink();

    // Changed formats: labels are written anew. The exported subscription functions do nothing, so it is the
    // host that calls these.

    void OnEventFormatChanged();
    void OnChanged() { OnEventFormatChanged(); }
    void OnChangedNumberInt() { OnEventFormatChanged(); }
    void OnChangedNumberLong() { OnEventFormatChanged(); }
    void OnChangedNumberFloat() { OnEventFormatChanged(); }
    void OnChangedNumberDouble() { OnEventFormatChanged(); }
    void OnChangedAngleFloat() { OnEventFormatChanged(); }
    void OnChangedAngleDouble() { OnEventFormatChanged(); }
    IDateFormatChanged& GetDateSink();
    IAngleFormatChanged& GetAngleSink();
    INumberFormatChanged& GetNumberSink();
    /// Adds a type to those whose formats the labels depend on.
    void AddSink(EDataTyps type);
    void RemoveSink(EDataTyps type);
    void RemoveSinks();
    const std::set<EDataTyps>& GetSinkTypes() const;

    // Where the parts of a row are, in client coordinates; empty for no such row.

    CRect GetRectTreeBox(int row) const;
    CRect GetRectCheckBox(int row) const;
    CRect GetIconRect(int row) const;
    CRect GetRectLabel(int row) const;
    CRect GetRectTreeBox(const CTreeItem& item) const;
    CRect GetRectCheckBox(const CTreeItem& item) const;
    CRect GetIconRect(const CTreeItem& item) const;
    CRect GetRectLabel(const CTreeItem& item) const;

    /// Entries have check boxes.
    bool HasCheckBoxes() const;
    /// Entries are in a tree, with lines and icons.
    bool HasTree() const;
    /// The list control has check boxes of its own beside those of the enumeration.
    bool IsDrawStateImages() const { return (GetExtendedStyle() & LVS_EX_CHECKBOXES) != 0; }
    /// Names are split into a tree.
    bool IsTreePreview() const;
    /// The picture of the entry in a row; empty for a group, and when there is none.
    std::string GetImagePath(int row) const;
    /// Whether the picture of an entry is on the screen.
    bool IsPreviewShown() const;
    /// The text of a cell: the label, and in a table the member's value.
    CString GetColumnText(const CTreeItem& item, int column) const;

    void DrawItem(DRAWITEMSTRUCT* item) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void PreSubclassWindow() override;

protected:
    /// The entries, apart from the control.
    internal::ComboModel& GetModel();
    bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    void Bind(IMemberDispatch* disp, std::string memberName, std::string valueName, CVariantValue value);

    std::unique_ptr<internal::ComboListParts> m_parts;
};

} // namespace korvel
