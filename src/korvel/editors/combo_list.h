#pragma once

#include "korvel/editors/combo_geometry.h"
#include "korvel/editors/combo_model.h"
#include "korvel/editors/combo_preview.h"
#include "korvel/editors/grid_ctrl_combo_box_input_state.h"
#include "korvel/output/format_subscription.h"
#include "korvel/values/observer_grid.h"
#include "korvel/window/display/display.h"
#include "korvel/window/list/list_ctrl.h"
#include "korvel/window/list/type_ahead.h"

#include <list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>

namespace korvel {

/// What a list tells its owner (high word of WM_COMMAND's first parameter).
inline constexpr UINT ComboListSetFocus = 3;
inline constexpr UINT ComboListKillFocus = 4;
inline constexpr UINT ComboListChanged = 9;       ///< the value changed
inline constexpr UINT ComboListFinished = 0xFFFD; ///< -3: the user has chosen, the owner closes the list

/// Commands of the context menu, as a host may send them (WM_COMMAND). The data sheet of the entry in the
/// current row is the owner's affair: the list passes the command on, with its handle in lParam.
enum ComboListCommand : UINT {
    ComboCommandDataSheet = 15004,
    ComboCommandAddRootItem = 15005,
    ComboCommandAddRootGroup = 15006,
    ComboCommandAddItem = 15007,
    ComboCommandAddGroup = 15008,
    ComboCommandDelete = 15044,
    ComboCommandRename = 15045,
};

/// The list of the entries of one enumeration: flat, as a tree of path-shaped names, or as a table with a
/// column for each member of a template object. It holds one value, the selection, and writes it back to a
/// member of an object when its owner asks for it.
///
///     CComboList list(eDropDown);
///     list.CreateDropDown(&grid, 106);
///     list.Initialize(&object, "surface");    // rows, selection and input as the enumeration wants them
///     korvel::SetWindowPos(list.m_hWnd, ...); // the user chooses; the owner hears 9, then -3
///     list.UpdateDisp(observer);              // SetMember, OnChange, and what the object made of it
///     list.UnIntialize();
///
/// In a dialog, a list of mode eDesignFlat or eDesignTree is created like any CListCtrl, or attached to a
/// control of the template. It then tells its parent, unless SetOwner names another window.
///
/// The enumeration and the object belong to the host and must live until UnIntialize. What they throw passes
/// through; a list that was being built is empty then, any other as consistent as before. Null items do
/// nothing.
class KORVEL_API CComboList : public CListCtrl, private ComboRowSink {
public:
    using CTreeItem = ComboTreeItem;

    /// Commands of the context menu of a design list; each also needs its flag of the enumeration.
    enum ECommandList : std::uint32_t { eCommandAdd = 1, eCommandRename = 2, eCommandDelete = 4 };

    explicit CComboList(EComboListMode mode);
    CComboList(const CVariantValue& value, EComboListMode mode);
    ~CComboList() override;

    /// Makes the window of a list that drops down: a top-level window of its own, hidden, that never takes
    /// the keyboard. `owner` hears the list; its top-level window owns it.
    bool CreateDropDown(CWnd* owner, int id);
    /// Who hears SendParentComboMessage; null: the parent window.
    void SetOwner(CWnd* owner);
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
    /// Empties the list and forgets value name, enumeration and object. The name is spelled so for good.
    void UnIntialize();
    bool IsInitialized() const { return m_model.IsOpen(); }

    /// Writes the value to the object, tells `observer` (may be null), reads it back, and tells again when
    /// the object has corrected it. Does nothing without an object and while one is running.
    void UpdateDisp(IObserverGrid* observer);
    bool IsRunningUpdateDisp() const { return (m_Flags & FlagUpdating) != 0; }
    /// Reads the member and compares; false while UpdateDisp runs, and for an object without the member.
    const bool& IsDirty();

    IMemberDispatch* GetDisp() const { return m_pDisp; }
    const std::string& GetMemberName() const { return m_strMemberName; }
    const CVariantValue& GetValue() const { return m_model.Value(); }
    EComboListMode GetMode() const { return m_model.Mode(); }
    IEnumValue* GetEnumValue() const { return m_model.Enumeration(); }
    const IGridCtrlComboBoxInputState* GetInputState() const { return m_pInputState.get(); }

    /// Null for a row that there is not.
    CTreeItem* GetTreeItem(int row) const { return m_model.Tree().ItemAt(row); }
    const CTreeItem& GetRootItem() const { return m_model.Tree().Root(); }
    void Expand(CTreeItem* item);
    void Collapse(CTreeItem* item);
    /// The item and everything above it.
    void ExpandParent(CTreeItem* item) { m_model.ExpandParent(item); }
    /// The labels from the root down, joined with the separator of the enumeration.
    std::string GetPath(const CTreeItem& item) const { return m_model.Path(item); }
    /// `base`, or `base` with the first number with which no child of `parent` is called.
    std::string CreateUniqueName(const std::string& base, const CTreeItem& parent) const;

    /// Sets or clears exactly these bits of ECommandList. They outlive the binding.
    void EnableCommands(std::uint32_t commands, bool enable);
    /// Selects the row and makes it the one that commands and keys are about.
    void SetCurrentRow(int row);
    int GetCurrentRow() const;

    // What a host tells of the enumeration; calls for another one than the list shows do nothing.
    void OnAddEnumValue(IEnumValue* enumeration, long id);
    void OnDestroyEnumValue(IEnumValue* enumeration, long id);
    void OnRenameEnumValue(IEnumValue* enumeration, long id, const CVariantValue& oldName);
    void OnEditEnumValue(IEnumValue*, long, const CVariantValue&) {}
    IEnumSink& GetEnumSink() { return m_enumSink; }

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
    IDateFormatChanged& GetDateSink() { return m_dateSink; }
    IAngleFormatChanged& GetAngleSink() { return m_angleSink; }
    INumberFormatChanged& GetNumberSink() { return m_numberSink; }
    /// The types whose formats the labels depend on.
    void AddSink(EDataTyps type) { m_SinkTypes.insert(type); }
    void RemoveSink(EDataTyps type) { m_SinkTypes.erase(type); }
    void RemoveSinks() { m_SinkTypes.clear(); }
    const std::set<EDataTyps>& GetSinkTypes() const { return m_SinkTypes; }

    // Where the parts of a row stand, in client coordinates; empty for a row that there is not.
    std::optional<ComboRowGeometry> GetRowGeometry(int row) const;
    CRect GetRectTreeBox(int row) const;
    CRect GetRectCheckBox(int row) const;
    CRect GetIconRect(int row) const;
    CRect GetRectLabel(int row) const;
    CRect GetRectTreeBox(const CTreeItem& item) const { return GetRectTreeBox(RowOf(item)); }
    CRect GetRectCheckBox(const CTreeItem& item) const { return GetRectCheckBox(RowOf(item)); }
    CRect GetIconRect(const CTreeItem& item) const { return GetIconRect(RowOf(item)); }
    CRect GetRectLabel(const CTreeItem& item) const { return GetRectLabel(RowOf(item)); }

    bool HasCheckBoxes() const { return m_model.HasFlag(ENF_CheckBoxes); }
    /// Entries stand in a tree, with lines and icons.
    bool HasTree() const { return m_ImageColumn != -1; }
    /// The list control has check boxes of its own beside those of the enumeration.
    bool IsDrawStateImages() const { return (GetExtendedStyle() & LVS_EX_CHECKBOXES) != 0; }
    bool IsTreePreview() const { return m_model.IsTreePreview(); }
    /// The picture of the entry in a row; empty for a group, and when there is none.
    std::string GetImagePath(int row) const;
    bool IsPreviewShown() const { return m_preview.IsShown(); }
    /// The text of a cell: the label, and in a table the member's value.
    CString GetColumnText(const CTreeItem& item, int column) const;

    void DrawItem(DRAWITEMSTRUCT* item) override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void PreSubclassWindow() override;

    // For the input states.
    ComboModel& GetModel() { return m_model; }
    void RedrawRow(int row);
    void ScrollByWheel(UINT flags, short delta, CPoint screen);

protected:
    bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

private:
    enum Flags : unsigned { FlagUpdating = 1, FlagHidePreview = 2 };

    void OnRowsCame(ComboTree::RowRange rows) override;
    void OnRowsWent(ComboTree::RowRange rows) override;

    // Binding (combo_list_binding.cpp).
    void Bind(IMemberDispatch* disp, std::string memberName, std::string valueName, CVariantValue value);
    void Build();
    void Reset();
    /// What the host says of the columns.
    struct Columns {
        bool hasTree = false; // texts stand behind icons in the first one
        bool isTable = false;
        std::list<std::string> names; // of a table, behind the first column
        std::set<EDataTyps> types;    // whose formats the texts depend on
    };
    /// None when the host has ended the binding meanwhile.
    std::optional<Columns> AskColumns() const;
    void AskMembers(Columns& columns) const;
    void CreateColumns(const Columns& columns);
    /// None for a mode that there is not; the list then takes no events.
    void CreateInputState();
    void LayColumns();
    void WriteBack(IMemberDispatch& disp, std::string name, IObserverGrid* observer);
    void EndUpdate();

    // Input (combo_list_input.cpp).
    std::optional<LRESULT> HandleInput(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleButton(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleMouseMove(WPARAM wParam, LPARAM lParam);
    LRESULT HandleWheel(WPARAM wParam, LPARAM lParam);
    LRESULT HandleKey(UINT message, WPARAM wParam, LPARAM lParam);
    void TakeForwardedCharacters(UINT key, LPARAM data);
    LRESULT HandleCharacter(WPARAM wParam, LPARAM lParam);
    LRESULT HandleFocus(UINT message, WPARAM wParam, LPARAM lParam);
    int FindRowByText(const internal::TypeAhead::Search& search) const;
    void DismissPreview();

    // Commands (combo_list_commands.cpp).
    void OnRButtonDown(CPoint point);
    std::vector<MenuEntry> BuildMenu(const CTreeItem* item) const;
    void AddMenuCommand_ADD(std::vector<MenuEntry>& menu) const;
    bool IsCommandEnabled(ECommandList command, EnumFlags flag) const;
    bool RunCommand(UINT command);
    void OnDataSheet();
    void OnAddRootItem();
    void OnAddRootGroup();
    void OnAddItem();
    void OnAddGroup();
    void OnDeleteEnum();
    void OnRenameEnumValue();
    bool TakesRootItems() const;
    void AddEntry(CTreeItem& parent);
    void AddGroup(CTreeItem& parent);
    CTreeItem* GetCurrentItem() const { return GetTreeItem(GetCurrentRow()); }
    CTreeItem* GetCurrentGroup() const;
    LRESULT OnLvnBeginlabeledit(int row);
    LRESULT OnLvnEndlabeledit(int row, const char* text);

    static int RowOf(const CTreeItem& item) { return item.HasRow() ? item.GetRow() : -1; }

    ComboModel m_model;
    IDateFormatChangedImp<CComboList> m_dateSink{this};
    IAngleFormatChangedImp<CComboList> m_angleSink{this};
    INumberFormatChangedImp<CComboList> m_numberSink{this};
    IEnumSinkImp<CComboList> m_enumSink{this};
    std::string m_strValueName; // base of the names of new entries
    std::shared_ptr<IGridCtrlComboBoxInputState> m_pInputState;
    IMemberDispatch* m_pDisp = nullptr;
    std::string m_strMemberName;
    std::map<int, std::string> m_Columns; // in a table: the members behind the columns from 1 on
    bool m_bDirty = false;
    std::set<EDataTyps> m_SinkTypes;
    int m_ImageColumn = -1; // 0 where entries stand in a tree
    std::uint32_t m_EnabledCommands = 0;
    HWND m_owner = nullptr;
    internal::TypeAhead m_typeAhead;
    ComboPreview m_preview;
    unsigned m_Flags = 0;
};

} // namespace korvel
