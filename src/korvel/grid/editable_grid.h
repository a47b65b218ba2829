#pragma once

#include "korvel/editors/grid_option.h"
#include "korvel/grid/cell_edit_grid.h"
#include "korvel/grid/grid_command.h"
#include "korvel/grid/grid_layout.h"
#include "korvel/values/observer_grid.h"

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <vector>

namespace korvel {

class IEnumContainer;
class IGridErrorReporter;

enum EImplementationDetail : std::uint32_t {};

/// Bits of the image style.
enum ImageStyle : std::uint32_t {
    IS_AskParent = 1, // the parent names the images of rows, by WM_GET_IMAGEINDEX
};

/// What WM_GET_IMAGEINDEX carries (lParam). `name` and `disp` are lent for the message.
struct ImageIndex {
    int index = 0; // in: what the grid would take; out: the parent's choice
    const std::string* name = nullptr;
    IMemberDispatch* disp = nullptr;
};

/// Shows the attributes of an object, and of all objects within it, as a tree of rows.
///
///     CEditableGrid grid(&observer, &enumerations);
///     grid.Create(WS_CHILD | WS_VISIBLE | LVS_REPORT, rect, &frame, 105);
///     grid.Initialize(&axis, "Name", "Value", 0);
///     grid.GetItemText(0, 1);        // "12,50 m"
///     axis.SetMember("length", longer);
///     sink->OnChange("length", longer);   // the sink that the observer was given for the axis
///     grid.GetItemText(0, 1);        // "13,00 m"
///
/// Objects and observer stay the host's and are called on the thread of the windows: a nested object must
/// live until the observer has heard RemoveSink for it, the root until Clear returns, the observer as long as
/// the grid. Destroying the window is a Clear, too. The grid never changes rows by itself: it changes the
/// object and tells the observer, and the host tells the grid through the sink. A null observer or object is
/// tolerated everywhere.
///
/// Objects that throw or know nothing of a member show an empty value. An object within itself shows as a
/// group without members. Whatever the grid calls of the host (objects, enumerations, presentations, the
/// observer, the parent window, overrides) may call the grid back, end the binding, destroy the window or
/// throw; it must not delete the grid. An exception leaves a binding whole or undone, and every sink of what
/// is not shown taken back.
///
/// The fields of a binding (state, root, groups, members, columns) are not the control's: derived
/// grids ask IsInitialized, GetRootDisp, LookupTreeItem, GetDispInterface, GetSubItem and
/// GetColumn.
class KORVEL_API CEditableGrid : public CellEditGrid {
public:
    CEditableGrid(IObserverGrid* observer, IEnumContainer* enumerations);
    ~CEditableGrid() override;

    /// Shows an object, null included. Without effect while one is shown, and from within Initialize and
    /// Clear: rebinding is Clear, then this. `extendedStyle`: LVS_EX_*. The columns take the widths of
    /// SetColumnInfo where there are such.
    void Initialize(IMemberDispatch* disp, const std::string& nameTitle, const std::string& valueTitle,
                    const unsigned long& extendedStyle);
    /// Shows nothing; the widths of the columns are kept for the next Initialize. From within Initialize it
    /// ends that.
    void Clear();

    /// The multi-column layout, with a column for each member name; the first one is the tree's. To be set
    /// before Initialize: kept, a grid that shows an object already ends without columns.
    void SetLayoutMultiColumn(const std::list<std::string>& columns);
    void SetLayoutSingleAttrColumn();
    const EGridLayout& GetGridLayout() const;
    const std::vector<SColumnInfo>& GetColumnInfo() const { return m_ColumnInfo; }
    void SetColumnInfo(const std::vector<SColumnInfo>& info) { m_ColumnInfo = info; }
    /// All options are off at first; a change rewrites the cells that it concerns.
    void SetGridOption(EGridOption option, bool on);
    bool GetGridOption(EGridOption option) const { return m_options.Has(option); }
    /// The column of a member; 1 for a name without a column.
    int GetSubItem(const std::string& name) const;
    /// The member of a column; empty for a column without a member.
    std::string GetColumn(const int& column) const;

    IMemberDispatch* GetRootDisp() const;
    /// The object that owns the member of a row (in the multi-column layout, the object that the row is).
    IMemberDispatch* GetDispInterface(int row) const;
    IMemberDispatch* GetDispInterface(const CTreeItem* node) const;
    /// The row of a nested object; null when it is not shown.
    CTreeItem* LookupTreeItem(IMemberDispatch* disp) const;
    /// The row of a member (in the multi-column layout, that of its object for a plain member). Of several
    /// members of one name, the first.
    CTreeItem* LookupTreeItem(IMemberDispatch* disp, const std::string& name) const;
    /// The member of a row; in the multi-column layout that of the cell under the pointer.
    std::string GetAttrName(const CItemInfo* info) const;

    /// Adds one member of an object below `parent`, null for a root row. `position` as in AddChildNode.
    /// Without effect while nothing is shown.
    void InsertDispMember(CTreeItem* parent, IMemberDispatch* disp, const unsigned long& position,
                          const std::string& name, const CVariantValue& value);
    /// Removes a member with everything under it; the objects below are not asked. In the multi-column
    /// layout the cell of a plain member becomes empty. `parent` and `value` are kept for callers.
    void RemoveDispMember(CTreeItem* parent, IMemberDispatch* disp, const std::string& name,
                          const CVariantValue& value);

    /// Text and editor of a value's cell, under the options; `text` stays as it is for a type that a cell
    /// does not show. What it throws leaves an empty cell.
    virtual void ConvertToOutput(IMemberDispatch* disp, const std::string& name, const CVariantValue& value,
                                 std::string& text, CItemInfo::CONTROLTYPE& control);
    /// True draws the check box of a cell checked whatever the value is.
    virtual bool OnGetCheckState(IMemberDispatch* disp, const std::string& name, const CVariantValue& value);

    // Where the sinks lead; see IObserverGridSink. Members and objects that are not shown are ignored.
    /// Does nothing: an object's own name is not shown.
    void OnChangeIdent(const std::string& name, const std::string& newName);
    void OnChange(IMemberDispatch* disp, const std::string& name, const CVariantValue& value);
    void OnChangeEditFlag(IMemberDispatch* disp, const std::string& name, const bool& editable);
    /// The first half of OnOperationChangeType: editor and format service. `oldType` is kept for callers.
    void OnChangeControlType(IMemberDispatch* disp, const std::string& name, EDataTyps oldType,
                             const CVariantValue& value);
    void OnOperationAdd(IMemberDispatch* disp, const std::string& name, const CVariantValue& value);
    void OnOperationInsert(IMemberDispatch* disp, const unsigned long& position, const std::string& name,
                           const CVariantValue& value);
    void OnOperationRemove(IMemberDispatch* disp, const std::string& name, const CVariantValue& value);
    void OnOperationRename(IMemberDispatch* disp, const std::string& name, const std::string& newName);
    void OnOperationChangeType(IMemberDispatch* disp, const std::string& name, EDataTyps oldType,
                               const CVariantValue& value);
    void OnOperationChangeTupelPresentation(IMemberDispatch* disp, const std::string& text);

    /// Registers a member with the format service of a type, so that a change of format rewrites its cell.
    void AddSink(EDataTyps type, IMemberDispatch* disp, const std::string& name);
    /// True when the member was registered with the service of this type; a list type stands for whatever
    /// its entries are.
    bool RemoveSink(EDataTyps type, IMemberDispatch* disp, const std::string& name);

    // Undoable steps, of which the parent window is told by WM_HISTORY and WM_HISTORY_ROLLBACK. The grid
    // makes one of each write; without a parent nothing is sent.
    /// A step begins; `text` is its title.
    void SendHistoryEvent(const char* text);
    /// The step ends.
    void SendHistoryEvent();
    /// What was recorded since the last step began is to be dropped; follows the end of the step.
    void SendHistoryEventRollBack();

    /// False: a press in a cell begins no edit.
    void SetAllowEdit(bool allow) { m_AllowEdit = allow; }
    void ModifyImageStyle(std::uint32_t add, std::uint32_t remove);
    std::uint32_t GetImageStyle() const { return m_ImageStyle; }

    // What the user does to the member of the selected row, each also as a GridCommand. Without a selected
    // row nothing is done but adding; what an object throws is told as a failed write is. The grid changes
    // the object and tells the observer; rows follow the sink. What is being edited ends first; refused,
    // nothing else is done.
    /// Asks OnAddMember, then the user in a dialog, for a member of the selected row's object; without a
    /// selected row of the root. No undoable step.
    void OnAddAttribut_V1();
    /// Asks for MF_Delete and OnRemoveMember; no undoable step.
    void OnDelAttribut_V1();
    /// Starts the edit of the label.
    void OnRenameAttribut_V1();
    /// Asks for MF_WriteProtect; no undoable step.
    void OnChangeEditableAttribut_V1();
    /// An undoable step. In the multi-column layout of the cell under the pointer, else of the focused one.
    void OnChangeType(EDataTyps target);
    void OnChange2IntType() { OnChangeType(DT_Int); }
    void OnChange2UnsignedIntType() { OnChangeType(DT_UInt); }
    void OnChange2LongType() { OnChangeType(DT_Long); }
    void OnChange2DoubleType() { OnChangeType(DT_Double); }
    void OnChange2DoubleFloat() { OnChangeType(DT_Float); } ///< kept: the name
    void OnChange2StringType() { OnChangeType(DT_String); }
    void OnChange2AngleFloatType() { OnChangeType(DT_AngleFloat); }
    void OnChange2AngleDoubleType() { OnChangeType(DT_AngleDouble); }
    /// Opens the file that the text of the member names.
    void OnOpenFile();
    /// Opens the folder of that file; "." is the folder of a bare name.
    void OnOpenFolder();

    /// Has the desktop open a file, and tells the user why it does not; where there is no program for it, the
    /// user may choose one. True when that was done. What a relative path means is the host's affair:
    /// override both, and pass on absolute ones.
    virtual bool OpenFile(CString path);
    virtual bool OpenFolder(CString path);

    /// The enumerations that a new attribute may be a value of; must outlive the grid.
    void SetEnumImp(IEnumContainer* enumerations) { m_pEnumContainer = enumerations; }
    // What the user may do: removing, and with SetAllowEdit write protection, are refused where they are not
    // allowed. The others are for the context menu.
    void SetAllowRemove(bool allow) { m_AllowRemove = allow; }
    void SetAllowRename(bool allow) { m_AllowRename = allow; }               ///< No effect yet.
    void SetAllowChangeType(bool allow) { m_AllowChangeType = allow; }       ///< No effect yet.
    void SetAllowAdd(bool allow) { m_AllowAdd = allow; }                     ///< No effect yet.
    void SetAllowFormats(bool allow) { m_AllowFormats = allow; }             ///< No effect yet.
    void SetAllowCopyClipboard(bool allow) { m_AllowCopyClipboard = allow; } ///< No effect yet.
    /// False: a new attribute cannot be write protected from the start.
    void SetAllowWriteProtect(bool allow) { m_AllowWriteProtect = allow; }
    /// The types that a new attribute may have, as a mask.
    void SetEnableUserAttributsTyps(std::uint32_t types) { m_EnableUserAttributsTyps = types; }
    std::uint32_t GetEnableUserAttributsTyps() const { return m_EnableUserAttributsTyps; }
    /// Kept for callers; nothing reads the details.
    void AddImplementationDetail(EImplementationDetail detail) { m_ImplementationDetails |= detail; }

    int GetIcon(const CTreeItem* node) override;
    UINT GetCheckState(const CTreeItem* node, int column) override;
    void OnControlLButtonDown(UINT flags, CPoint point, LVHITTESTINFO& hit) override;
    /// Removes the member as OnDelAttribut_V1 does, and refuses: a row comes and goes only with what it
    /// shows.
    BOOL OnRowDeleting(CTreeItem* node, int row) override;
    std::unique_ptr<CImageList> CreateRowDragImage(int row) override;
    BOOL OnVkReturn() override;
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    /// The label of the selected row is about to be edited: `*result` 1 refuses, as where the member allows
    /// neither MF_Rename nor MF_Change, and while a cell is being edited.
    void OnLvnBeginlabeledit(NMHDR* header, LRESULT* result);
    /// A label was edited: renames the member of its row in an undoable step, and `*result` is 1 when that
    /// was done.
    void OnLvnEndlabeledit(NMHDR* header, LRESULT* result);

    bool OnCommand(WPARAM wParam, LPARAM lParam) override;
    bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    void OnNodeUnlinked(CTreeItem& node, const CTreeItem* formerParent) override;

    /// From Initialize to Clear.
    bool IsInitialized() const;

    IObserverGrid* const m_pObserver; ///< may be null
    IEnumContainer* m_pEnumContainer;

    bool m_AllowRemove = true;
    bool m_AllowRename = true;
    bool m_AllowChangeType = true;
    bool m_AllowAdd = true;
    bool m_AllowEdit = true;
    bool m_AllowFormats = true;
    bool m_AllowCopyClipboard = false;
    bool m_AllowWriteProtect = true;

    EGridLayout m_Layout = eSingleAttrColumn; ///< not to be changed while an object is shown
    std::uint32_t m_ImageStyle = 0;
    std::uint32_t m_EnableUserAttributsTyps = 0xFFFFFFFF;
    std::uint32_t m_ImplementationDetails = 0;
    std::vector<SColumnInfo> m_ColumnInfo;
    bool m_bLabelEditArmed = true; ///< false while OnRenameAttribut_V1 starts the edit of the label
    /// Hears of failures, under InlineErrors in place of the error box; null: none. Not owned; must outlive
    /// the grid.
    IGridErrorReporter* m_pErrorReporter = nullptr;

private:
    class Binding;

    void SetGridLayout(EGridLayout layout);
    std::string MemberOfCell(const CTreeItem& node, int column) const;

    std::unique_ptr<Binding> m_binding;
    GridOptions m_options;
};

} // namespace korvel
