#pragma once

#include "korvel/editors/grid_option.h"
#include "korvel/grid/grid_layout.h"
#include "korvel/grid/member_command_grid.h"
#include "korvel/values/observer_grid.h"

#include <cstdint>
#include <list>
#include <memory>
#include <string>

namespace korvel {

class IGridErrorReporter;

enum EImplementationDetail : std::uint32_t {};

/// Bits of the image style.
enum ImageStyle : std::uint32_t {
    IS_AskParent = 1, // the parent names the images of rows, by WM_GET_IMAGEINDEX
};

/// What WM_GET_IMAGEINDEX carries (lParam). `name` and `disp` are lent for the message. It is sent when a row
/// comes, and not again when its member changes: a host whose images follow changes sets `image` of the row's
/// item, and redraws the row.
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
class KORVEL_API CEditableGrid : public MemberCommandGrid {
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
    void OnChangeIdent(const std::string&, const std::string&) {}
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

    void ModifyImageStyle(std::uint32_t add, std::uint32_t remove);
    std::uint32_t GetImageStyle() const { return m_ImageStyle; }

    /// Kept for callers; nothing reads the details.
    void AddImplementationDetail(EImplementationDetail detail) { m_ImplementationDetails |= detail; }

    int GetIcon(const CTreeItem* node) override;
    UINT GetCheckState(const CTreeItem* node, int column) override;
    void OnControlLButtonDown(UINT flags, CPoint point, LVHITTESTINFO& hit) override;
    /// Removes the member as OnDelAttribut_V1 does, and refuses: a row comes and goes only with what it
    /// shows.
    BOOL OnRowDeleting(CTreeItem* node, int row) override;
    std::unique_ptr<CImageList> CreateRowDragImage(int row) override;
    BOOL OnVkReturn() override { return 1; }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void PreSubclassWindow() override;

protected:
    void OnNodeUnlinked(CTreeItem& node, const CTreeItem* formerParent) override;

    /// From Initialize to Clear.
    bool IsInitialized() const;

    IObserverGrid* const m_pObserver; ///< may be null

    EGridLayout m_Layout = eSingleAttrColumn; ///< not to be changed while an object is shown
    std::uint32_t m_ImageStyle = 0;
    std::uint32_t m_ImplementationDetails = 0;
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
