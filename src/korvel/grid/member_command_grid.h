#pragma once

#include "korvel/grid/exchange_grid.h"
#include "korvel/grid/grid_command.h"

#include <cstdint>
#include <memory>

namespace korvel {

class IEnumContainer;

namespace internal {
class AttributeRows;
struct MenuPermissions;
} // namespace internal

/// The commands for members in a CEditableGrid, from which grids derive: what the user may do to the selected
/// row, and what is done then.
///
///     grid.SetAllowRemove(false);
///     grid.OnRenameAttribut_V1();                                                  // edits the label
///     grid.SendMessageA(WM_COMMAND, static_cast<WPARAM>(GridCommand::OpenFile));   // as OnOpenFile
class KORVEL_API MemberCommandGrid : public ExchangeGrid {
public:
    ~MemberCommandGrid() override;

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
    /// An undoable step. In the multi-column layout of the cell in the focused column.
    void OnChangeType(EDataTyps target);
    void OnChange2IntType() { OnChangeType(DT_Int); }
    void OnChange2UnsignedIntType() { OnChangeType(DT_UInt); }
    void OnChange2LongType() { OnChangeType(DT_Long); }
    void OnChange2DoubleType() { OnChangeType(DT_Double); }
    void OnChange2DoubleFloat() { OnChangeType(DT_Float); } ///< kept: the name
    void OnChange2StringType() { OnChangeType(DT_String); }
    void OnChange2AngleFloatType() { OnChangeType(DT_AngleFloat); }
    void OnChange2AngleDoubleType() { OnChangeType(DT_AngleDouble); }
    /// Opens the file that the member names: by the Text of a file name, else by the user-facing text.
    void OnOpenFile();
    /// Opens the folder of that file; "." is the folder of a bare name.
    void OnOpenFolder();

    /// Has the desktop open a file, and tells the user why it does not; where there is no program for it, the
    /// user may choose one. True when that was done. What a relative path means is the host's affair:
    /// override both, and pass on absolute ones.
    virtual bool OpenFile(CString path);
    virtual bool OpenFolder(CString path);

    // The context menu: a right press selects the row under the pointer, beside the rows none, and opens a
    // menu of what the flags of its member and object, and the permissions below, allow: opening, copying,
    // removing, renaming, protecting, retyping, commands of the member (the further ones in a popup), "New",
    // commands of the object, "Formats". The menu key and Shift+F10 open it at the selected row. An edit ends
    // first; refused, no menu opens. With nothing to offer the parent gets WM_CONTEXTMENU, as from any list.
    //
    // The choice comes back as WM_COMMAND with a GridCommand, and runs for the row and column that were
    // clicked, if they are still there.
    /// A right press at a point of the client area.
    virtual void OnRButtonDown(UINT flags, CPoint point) { OnRButtonDown_Version_1(flags, point); }
    void OnRButtonDown_Version_1(UINT flags, CPoint point);
    /// Runs a command that an object has put into the menu, for the selected row, by its number there: the
    /// lists are read again and counted alike. Kept: where they are others by now, another command runs.
    virtual void OnContextCommands(UINT id) { OnContextCommands_Version_1(id); }
    void OnContextCommands_Version_1(UINT id);
    /// "Formats": there is no dialog for them in this library. Passes the command on to the parent, as
    /// WM_COMMAND with the number and the grid in lParam; hosts without one forbid it by SetAllowFormats.
    virtual void OnFormats();

    /// The enumerations that a new attribute may be a value of; must outlive the grid.
    void SetEnumImp(IEnumContainer* enumerations) { m_pEnumContainer = enumerations; }
    /// False: a press in a cell begins no edit.
    void SetAllowEdit(bool allow) { m_AllowEdit = allow; }
    // What the user may do. Removing, and with SetAllowEdit write protection, are refused where they are not
    // allowed; what else is not allowed is only left out of the context menu. Copying is not allowed at first.
    void SetAllowRemove(bool allow) { m_AllowRemove = allow; }
    void SetAllowRename(bool allow) { m_AllowRename = allow; }
    void SetAllowChangeType(bool allow) { m_AllowChangeType = allow; }
    void SetAllowAdd(bool allow) { m_AllowAdd = allow; }
    void SetAllowFormats(bool allow) { m_AllowFormats = allow; }
    void SetAllowCopyClipboard(bool allow) { m_AllowCopyClipboard = allow; }
    /// False: a new attribute cannot be write protected from the start.
    void SetAllowWriteProtect(bool allow) { m_AllowWriteProtect = allow; }
    /// The types that a new attribute may have, as a mask.
    void SetEnableUserAttributsTyps(std::uint32_t types) { m_EnableUserAttributsTyps = types; }
    std::uint32_t GetEnableUserAttributsTyps() const { return m_EnableUserAttributsTyps; }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

protected:
    /// `observer` may be null; must outlive the grid.
    MemberCommandGrid(IObserverGrid* observer, IEnumContainer* enumerations);
    /// To be called once, when the grid is made; all must outlive its window.
    void SetUpCommands(internal::AttributeRows& rows, internal::EditedMembers& members,
                       internal::WriteFrame& frame, IObserverGrid* observer);

    /// The label of the selected row is about to be edited: `*result` 1 refuses, as where the member allows
    /// neither MF_Rename nor MF_Change, and while a cell is being edited.
    void OnLvnBeginlabeledit(NMHDR* header, LRESULT* result);
    /// A label was edited: renames the member of its row in an undoable step, and `*result` is 1 when that
    /// was done.
    void OnLvnEndlabeledit(NMHDR* header, LRESULT* result);

    bool OnCommand(WPARAM wParam, LPARAM lParam) override;
    bool OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) override;

    IEnumContainer* m_pEnumContainer;

    bool m_AllowRemove = true;
    bool m_AllowRename = true;
    bool m_AllowChangeType = true;
    bool m_AllowAdd = true;
    bool m_AllowEdit = true;
    bool m_AllowFormats = true;
    bool m_AllowCopyClipboard = false;
    bool m_AllowWriteProtect = true;

    std::uint32_t m_EnableUserAttributsTyps = 0xFFFFFFFF;
    bool m_bLabelEditArmed = true; ///< false while OnRenameAttribut_V1 starts the edit of the label

private:
    struct Parts;

    bool SelectFor(unsigned command);
    bool RunCommand(GridCommand command);
    internal::MenuPermissions Permissions() const;

    std::unique_ptr<Parts> m_parts;
};

} // namespace korvel
